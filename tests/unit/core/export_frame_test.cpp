#include "core/export_frame.h"

#include <gtest/gtest.h>

#include <limits>

#include "core/event_names.h"
#include "tests/unit/support/fakes.h"
#include "tests/unit/support/log_record.h"
#include "tests/unit/support/scripted_rows.h"

namespace prot {
namespace {

using test::add_record;
using Calls = std::vector<std::string>;
using Lines = std::vector<std::vector<std::string>>;
using Description = LineRules::Description;
using ProgressEnd = LineRules::ProgressEnd;

/// Lines whose rules a test sets, and which tell what they were asked. One cell of their own: the record's
/// key.
class ScriptedLines : public SectionLines {
public:
    LineRules wanted;
    bool has_record = true;
    Calls calls;

    LineRules rules() const override { return wanted; }
    bool describe_record(const LogRow& row, CsvLine& line) override {
        calls.push_back("describe");
        line[0] = std::to_string(row.number(LogColumn::dlPrimaryKey1));
        return has_record;
    }
    std::string_view caption(const ChangedField& field) override {
        calls.push_back("caption " + std::string(field.table) + "." + std::string(field.name));
        return field.name == "HIDDEN" ? std::string_view() : field.name;
    }
    std::optional<std::string> marked_old_value(const ChangedField& field, std::string_view logged) override {
        return marked(field, "old", logged);
    }
    std::optional<std::string> marked_new_value(const ChangedField& field, std::string_view logged) override {
        return marked(field, "new", logged);
    }
    std::string translated_value(const ChangedField&, std::string_view value) override {
        calls.push_back("translate " + std::string(value));
        return value == "1" ? "eins" : "";
    }

private:
    std::optional<std::string> marked(const ChangedField& field, const char* side, std::string_view logged) {
        if (logged != "_MEMO_") return std::nullopt;
        calls.push_back(std::string(side) + " memo of " + std::to_string(field.row.id()));
        return field.name == "EMPTY" ? "" : std::string(side) + " memo";
    }
};

LogRows rows_from(RowSet rows) { return LogRows(std::make_unique<ArrayStream>(std::move(rows))); }

class WrittenFile : public testing::Test {
protected:
    test::FakeHost host;
    test::FakeDatabase oDBU;
    test::FakeParent parent;
    ScriptedLines section;
    Calls database_calls;
    RowSet rows{log_columns};

    static RowSet rows_of(std::size_t columns, std::size_t count, std::int32_t first) {
        RowSet rows(columns);
        rows.set_first_row(first);
        for (std::size_t i = 0; i < count; ++i) rows.add_row();
        return rows;
    }

    void write(RowSet whole) { write(rows_from(std::move(whole)), &parent); }
    void write(LogRows&& records) { write(std::move(records), &parent); }
    void write(LogRows&& records, ProgressParent* progress, bool ask_user = false) {
        prot::Run run{host.environment, oDBU};
        test::FakeCsvWriter writer(host.written);
        constexpr std::string_view captions[] = {"Schlüssel"};
        std::string file_name = "x.csv";
        ExportFrame(run, progress, section, {"Filter", captions})
            .write_file(writer, ask_user, file_name, records);
    }

    /// Cells of the key, old and new value, of the lines below the head.
    Lines written() {
        Lines lines;
        const Lines& all = host.written.files.at(0).lines;
        for (std::size_t i = 2; i < all.size(); ++i) lines.push_back({all[i][0], all[i][5], all[i][6]});
        return lines;
    }
};

TEST_F(WrittenFile, BeginsWithFilterTextAndCaptions) {
    write(rows_of(log_columns, 0, 0));
    const Lines head = {
        {"Filter", "", "", "", "", "", "", "", "", ""},
        {"Schlüssel", "Datum der Änderung", "Mitarbeiter", "Feld der Änderung", "Aktion", "alter Wert",
         "neuer Wert", "Arbeitsstation", "Applikation", "Datenbankbenutzer"},
    };
    EXPECT_EQ(host.written.files.at(0).lines, head);
    EXPECT_TRUE(host.written.files.at(0).closed);
}

TEST_F(WrittenFile, PutsEachColumnOfTheLogIntoItsCell) {
    fill_event_names();
    host.documents["doc"] = {{"FELD", "alt", "neu"}};
    add_record(rows, {.date = Date{46000.5}, .event = 2, .document = "doc"});
    write(std::move(rows));
    const std::vector<std::string> line = {
        "11",   "09.12.2025 12:00:00", "Anna", "FELD", "gelöscht", "alt", "neu", "PC-7",
        "Fibu", "Standardbenutzer"};
    EXPECT_EQ(host.written.files.at(0).lines.at(2), line);
}

TEST_F(WrittenFile, TellsProgressInTheHostsOwnRowNumbers) {
    constexpr std::int32_t largest = std::numeric_limits<std::int32_t>::max();
    const struct {
        std::int32_t first;
        ProgressEnd end;
        Calls calls;
        const char* why;
    } cases[] = {
        {0,
         ProgressEnd::row_count,
         {"gRefresh", "gSetFortschritt 0/2", "gSetFortschritt 1/2"},
         "from 0 the second number is the count"},
        {1,
         ProgressEnd::row_count,
         {"gRefresh", "gSetFortschritt 1/3", "gSetFortschritt 2/3"},
         "from 1 it is the upper bound plus one"},
        {-5,
         ProgressEnd::row_count,
         {"gRefresh", "gSetFortschritt -5/-3", "gSetFortschritt -4/-3"},
         "bounds may be negative"},
        {largest - 1,
         ProgressEnd::row_count,
         {"gRefresh", "gSetFortschritt 2147483646/2147483647", "gSetFortschritt 2147483647/2147483647"},
         "the number behind the largest does not exist"},
        {1,
         ProgressEnd::last_row,
         {"gRefresh", "gSetFortschritt 1/2", "gSetFortschritt 2/2"},
         "the upper bound itself"},
        {-1,
         ProgressEnd::last_row,
         {"gRefresh", "gSetFortschritt -1/1", "gSetFortschritt 0/1"},
         "an upper bound of 0 counts as 1"},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.why);
        parent.calls.clear();
        section.wanted.progress_end = row.end;
        write(rows_of(log_columns, 2, row.first));
        EXPECT_EQ(parent.calls, row.calls);
    }
}

/// Rows in batches of one, of which a progress expects another number.
LogRows scripted_records(std::size_t count, std::int64_t expected, Calls& calls) {
    std::vector<test::ScriptedRows::Batch> batches(count);
    for (test::ScriptedRows::Batch& batch : batches) {
        batch.rows = RowSet(log_columns);
        add_record(batch.rows, {.document = "doc"});
    }
    return LogRows(std::make_unique<test::ScriptedRows>(std::move(batches), calls, expected));
}

TEST_F(WrittenFile, NeverTellsMoreProgressThanItExpects) {
    const struct {
        std::int64_t expected;
        Calls calls;
        const char* why;
    } cases[] = {
        {4, {"gRefresh", "gSetFortschritt 0/4", "gSetFortschritt 1/4", "gSetFortschritt 2/4"}, "too many"},
        {1, {"gRefresh", "gSetFortschritt 0/1", "gSetFortschritt 1/1", "gSetFortschritt 1/1"}, "too few"},
        {0, {"gRefresh", "gSetFortschritt 0/0", "gSetFortschritt 0/0", "gSetFortschritt 0/0"}, "unknown"},
    };
    for (const auto& row : cases) {
        parent.calls.clear();
        write(scripted_records(3, row.expected, database_calls));
        EXPECT_EQ(parent.calls, row.calls) << row.why;
    }
}

TEST_F(WrittenFile, AsksHowManyRecordsAreExpectedOnlyForAProgress) {
    write(scripted_records(1, 1, database_calls), nullptr);
    EXPECT_EQ(database_calls, (Calls{"batch", "batch", "rows end"}));
}

TEST_F(WrittenFile, ReleasesTheRecordsWhileAPersonIsAskedForItsName) {
    host.documents["doc"] = {{"A", "x", "y"}};
    write(scripted_records(1, 1, database_calls), nullptr, true);
    EXPECT_EQ(database_calls, (Calls{"batch", "release", "batch", "batch", "rows end"}));
    EXPECT_EQ(written().size(), 1U);
}

TEST_F(WrittenFile, HasTheHeadAloneWhenTheRecordsAreGoneByTheTimeItHasAName) {
    class GoneMeanwhile : public ArrayStream {
    public:
        using ArrayStream::ArrayStream;
        void release() override {}
    };
    RowSet one(log_columns);
    add_record(one, {.document = "doc"});
    write(LogRows(std::make_unique<GoneMeanwhile>(std::move(one))), nullptr, true);
    EXPECT_EQ(host.written.files.at(0).lines.size(), 2U);
    EXPECT_TRUE(host.written.files.at(0).closed);
}

TEST_F(WrittenFile, IsNotOpenedForRowsThatLackAColumnOfTheLog) {
    try {
        write(rows_of(log_columns - 1, 1, 0));
        FAIL() << "the last column was read beyond the end of the row";
    } catch (const AutomationError& error) {
        EXPECT_EQ(error.number(), static_cast<std::int32_t>(ErrorNumber::index_out_of_range));
        EXPECT_EQ(error.description(), "Das Abfrageergebnis hat 13 Spalten statt 14.");
    }
    EXPECT_TRUE(host.written.files.empty());
    EXPECT_TRUE(parent.calls.empty());
}

TEST_F(WrittenFile, PutsTheSectionsWordForAnEmptyValueAndTranslatesTheOthers) {
    host.documents["doc"] = {{"A", "", "1"}, {"B", "NULL", "2"}, {"HIDDEN", "1", "1"}, {"C", "1", ""}};
    add_record(rows, {.document = "doc"});
    section.wanted.empty_value = "leer";
    write(std::move(rows));
    EXPECT_EQ(written(), (Lines{{"11", "leer", "eins"}, {"11", "leer", "2"}, {"11", "eins", "leer"}}));
}

TEST_F(WrittenFile, LeavesAnEmptyValueEmptyWithoutSuchAWord) {
    host.documents["doc"] = {{"A", "", "1"}};
    add_record(rows, {.document = "doc"});
    write(std::move(rows));
    EXPECT_EQ(written(), (Lines{{"11", "", "eins"}}));
    EXPECT_EQ(section.calls, (Calls{"describe", "caption TABELLE.A", "translate 1"}))
        << "nothing to translate";
}

TEST_F(WrittenFile, ReplacesAMarkByWhatItStandsForBeforeAnyValueIsTranslated) {
    host.documents["doc"] = {{"A", "_MEMO_", "_MEMO_"}, {"EMPTY", "_MEMO_", "1"}};
    add_record(rows, {.id = 77, .document = "doc"});
    section.wanted.empty_value = "leer";
    write(std::move(rows));
    EXPECT_EQ(written(), (Lines{{"11", "old memo", "new memo"}, {"11", "leer", "eins"}}));
    EXPECT_EQ(section.calls, (Calls{"describe", "caption TABELLE.A", "old memo of 77", "new memo of 77",
                                    "translate old memo", "translate new memo", "caption TABELLE.EMPTY",
                                    "old memo of 77", "translate 1"}));
}

TEST_F(WrittenFile, DescribesARecordWhenItsSectionWantsItDescribed) {
    host.documents["hidden"] = {{"HIDDEN", "1", "2"}};
    host.documents["shown"] = {{"HIDDEN", "1", "2"}, {"A", "x", "y"}, {"B", "x", "y"}};
    const struct {
        Description described;
        const char* document;
        Calls calls;
        std::size_t lines;
    } cases[] = {
        {Description::first, "hidden", {"describe", "caption TABELLE.HIDDEN"}, 0},
        {Description::behind_common_cells, "hidden", {"describe", "caption TABELLE.HIDDEN"}, 0},
        {Description::with_first_line, "hidden", {"caption TABELLE.HIDDEN"}, 0},
        {Description::with_first_line,
         "shown",
         {"caption TABELLE.HIDDEN", "caption TABELLE.A", "describe", "translate x", "translate y",
          "caption TABELLE.B", "translate x", "translate y"},
         2},
    };
    for (const auto& row : cases) {
        host.written.files.clear();
        section.calls.clear();
        section.wanted.described = row.described;
        RowSet one(log_columns);
        add_record(one, {.document = row.document});
        write(std::move(one));
        EXPECT_EQ(section.calls, row.calls) << row.document;
        EXPECT_EQ(written().size(), row.lines) << row.document;
    }
}

TEST_F(WrittenFile, FindsAnUnknownEventBeforeARecordIsDescribedBehindTheCommonCells) {
    const struct {
        Description described;
        Calls calls;
    } cases[] = {{Description::first, {"describe"}}, {Description::behind_common_cells, {}}};
    for (const auto& row : cases) {
        section.calls.clear();
        section.wanted.described = row.described;
        RowSet one(log_columns);
        add_record(one, {.event = 3, .document = "doc"});
        EXPECT_THROW(write(std::move(one)), AutomationError);
        EXPECT_EQ(section.calls, row.calls);
    }
}

TEST_F(WrittenFile, LeavesOutARecordThatItsSectionCannotDescribe) {
    host.documents["doc"] = {{"A", "x", "y"}};
    section.has_record = false;
    for (const Description described :
         {Description::first, Description::behind_common_cells, Description::with_first_line}) {
        host.written.files.clear();
        section.wanted.described = described;
        RowSet one(log_columns);
        add_record(one, {.document = "doc"});
        write(std::move(one));
        EXPECT_EQ(written(), Lines());
    }
}

TEST_F(WrittenFile, LeavesOutARecordWithoutMomentWhereMomentsCount) {
    host.documents["doc"] = {{"A", "x", "y"}};
    RowSet three(log_columns);
    add_record(three, {.document = "doc", .keys = {1, 0, 0, 0, 0}});
    add_record(three, {.date = Date{46000}, .document = "doc", .keys = {2, 0, 0, 0, 0}});
    add_record(three, {.document = "doc", .keys = {3, 0, 0, 0, 0}});
    three.set(static_cast<std::size_t>(LogColumn::ddDatum), std::string_view("kein Datum"));
    section.wanted.only_dated = true;
    write(std::move(three));
    EXPECT_EQ(written(), (Lines{{"2", "x", "y"}}));
    EXPECT_EQ(parent.calls.size(), 4U) << "progress counts them all the same";
}

TEST_F(WrittenFile, TellsTheHostOfEachRecordHowManyLinesItGotOrWhyNone) {
    host.documents["two"] = {{"A", "x", "y"}, {"HIDDEN", "x", "y"}, {"B", "x", "y"}};
    host.documents["hidden"] = {{"HIDDEN", "x", "y"}};
    host.documents["no column"] = {};
    RowSet six(log_columns);
    std::int64_t id = 0;
    for (const char* document : {"two", "hidden", "no column", "", "kaputt"})
        add_record(six, {.id = ++id, .date = Date{46000}, .document = document});
    add_record(six, {.id = ++id, .document = "two"});
    section.wanted.only_dated = true;
    write(std::move(six));
    EXPECT_EQ(host.records, (std::vector<test::ReadRecord>{{1, 2, NoLine::none},
                                                           {2, 0, NoLine::no_field_exported},
                                                           {3, 0, NoLine::without_changes},
                                                           {4, 0, NoLine::without_changes},
                                                           {5, 0, NoLine::unreadable_document},
                                                           {6, 0, NoLine::without_moment}}));
}

TEST_F(WrittenFile, TellsTheHostOfARecordThatItsSectionCannotDescribe) {
    host.documents["doc"] = {{"A", "x", "y"}};
    section.has_record = false;
    for (const Description described :
         {Description::first, Description::behind_common_cells, Description::with_first_line}) {
        host.records.clear();
        section.wanted.described = described;
        RowSet one(log_columns);
        add_record(one, {.id = 7, .document = "doc"});
        write(std::move(one));
        EXPECT_EQ(host.records, (std::vector<test::ReadRecord>{{7, 0, NoLine::not_described}}));
    }
}

TEST_F(WrittenFile, KeepsTheLookupsOfTheRecordsInOneBracket) {
    class Bracketed : public test::FakeDatabase {
    public:
        void begin_lookups() override { statements.push_back("begin"); }
        void end_lookups() noexcept override { statements.push_back("end"); }
        void require_connection() override { statements.push_back("connected?"); }
    } database;
    prot::Run run{host.environment, database};
    test::FakeCsvWriter writer(host.written);
    std::string file_name = "x.csv";
    LogRows none = rows_from(rows_of(log_columns, 0, 0));
    ExportFrame(run, nullptr, section, {"", {}}).write_file(writer, false, file_name, none);
    EXPECT_EQ(database.statements, (Calls{"begin", "end", "connected?"}));

    database.statements.clear();
    RowSet broken(log_columns);
    add_record(broken, {.event = 9});
    LogRows source = rows_from(std::move(broken));
    EXPECT_THROW(ExportFrame(run, nullptr, section, {"", {}}).write_file(writer, false, file_name, source),
                 AutomationError);
    EXPECT_EQ(database.statements, (Calls{"begin", "end"})) << "an error closes it too";
}

}  // namespace
}  // namespace prot
