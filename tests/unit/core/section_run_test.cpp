#include "core/section_run.h"

#include <gtest/gtest.h>

#include "core/ProtQRBCsvBas.h"
#include "core/event_names.h"
#include "tests/unit/support/fakes.h"
#include "tests/unit/support/log_record.h"
#include "tests/unit/support/scripted_rows.h"
#include "tests/unit/support/statements.h"

namespace prot {
namespace {

using test::FakeHost;
using test::server_error;
using Calls = std::vector<std::string>;

constexpr const char* log_table_query =
    "SELECT dcLogTable FROM tSysQuvoLogSections WHERE IDSysQuvoLogSections = 99";
constexpr const char* main_query =
    "SELECT idProtokoll, dcTable, dcWorkstation, dcUser, ddDatum, dlEvent, dmData, dcSystemUser, "
    "dcApplication, dlPrimaryKey1, dlSuchId1,  dlSuchId2,  dlSuchId3,  dlSuchId4 FROM tProtokoll WHERE "
    "dcUser = 'Max' AND  dcTable = 'T'";
constexpr std::string_view captions[] = {"Schlüssel"};

/// A writer that tells what happens to it, and when it goes.
class TellingWriter : public test::FakeCsvWriter {
public:
    TellingWriter(test::WrittenFiles& written, Calls& calls, int number)
        : FakeCsvWriter(written), calls_(calls), number_(std::to_string(number)) {}
    ~TellingWriter() override { calls_.push_back("writer " + number_ + " gone"); }
    bool open(std::string& file_name, bool ask_user) override {
        calls_.push_back("writer " + number_ + " opens " + file_name);
        return FakeCsvWriter::open(file_name, ask_user);
    }
    void show() override {
        calls_.push_back("writer " + number_ + " shows");
        FakeCsvWriter::show();
    }

private:
    Calls& calls_;
    std::string number_;
};

/// The host, database, parent and section below tell in one list what they were asked.
class TellingHost : public FakeHost {
public:
    Calls calls;
    int writers = 0;

    std::unique_ptr<CsvWriter> create_csv_writer() override {
        calls.push_back("new writer");
        return std::make_unique<TellingWriter>(written, calls, ++writers);
    }
};

class TellingDatabase : public test::FakeDatabase {
public:
    explicit TellingDatabase(Calls& calls) : calls_(calls) {}
    Value query_value(std::string_view sql) override {
        calls_.emplace_back(sql);
        return FakeDatabase::query_value(sql);
    }
    RowSet query_array(std::string_view sql) override {
        calls_.emplace_back(sql);
        return FakeDatabase::query_array(sql);
    }
    void execute(std::string_view sql) override {
        calls_.emplace_back(sql);
        FakeDatabase::execute(sql);
    }

private:
    Calls& calls_;
};

class TellingParent : public ProgressParent {
public:
    explicit TellingParent(Calls& calls) : calls_(calls) {}
    void gRefresh() override { calls_.emplace_back("gRefresh"); }
    void gSetFortschritt(std::int32_t, std::int32_t) override { calls_.emplace_back("gSetFortschritt"); }

private:
    Calls& calls_;
};

class ScriptedLines : public SectionLines {
public:
    explicit ScriptedLines(Run& run) : run_(run) {}
    bool describe_record(const LogRow& row, CsvLine& line) override {
        line[0] = std::to_string(row.number(LogColumn::dlPrimaryKey1));
        return true;
    }
    std::string_view caption(const ChangedField& field) override {
        return PROT_gsGetFieldDescription(field.table, field.name, run_);
    }
    std::string translated_value(const ChangedField&, std::string_view) override { return {}; }

private:
    Run& run_;
};

/// A section whose name follows from its filter.
class ScriptedSection : public SectionRun {
public:
    ScriptedSection(Environment& environment, Calls& calls)
        : SectionRun(environment, "ProtTestClass"), calls_(calls) {}

    std::string word = "Muster", filter = "Filter";
    std::string_view writer_loop = "mAusgabeCSV";
    BoxStyle no_data = BoxStyle::exclamation;
    bool accepted = true;
    bool batch_accepted = true;
    bool lines_fail = false;
    std::int32_t section_asked = 0;

private:
    bool get_filter(Database&, std::int32_t lSection, std::string& filter_text) override {
        calls_.emplace_back("form");
        section_asked = lSection;
        if (!batch_accepted) psCommandline.clear();
        filter_text = filter;
        word_ = word;
        return accepted;
    }
    Names names() const override {
        calls_.emplace_back("names");
        return {.word = word_, .captions = captions, .writer_loop = writer_loop, .no_data = no_data};
    }
    void prepare_selection(Run& run) override { run.oDBU.execute("CREATE TABLE #Auswahl"); }
    std::string msWHERE() const override {
        calls_.emplace_back("msWHERE");
        return " dcTable = 'T'";
    }
    std::unique_ptr<SectionLines> lines(Run& run) const override {
        if (lines_fail) throw server_error("Zeilen fehlen");
        return std::make_unique<ScriptedLines>(run);
    }

    Calls& calls_;
    std::string word_ = "vor dem Formular";
};

class OneSection : public testing::Test {
protected:
    TellingHost host;
    TellingDatabase oDBU{host.calls};
    TellingParent parent{host.calls};
    ScriptedSection section{host.environment, host.calls};
    Value para;
    const std::string caption_query = test::caption_statement("T", "FELD");
    const std::string ordered = std::string(main_query) + " ORDER BY ddDatum";

    OneSection() {
        fill_event_names();
        oDBU.answers[log_table_query] = {{std::string("tProtokoll")}};
        oDBU.answers[caption_query] = {{std::string("Feld")}};
        host.documents["doc"] = {{"FELD", "alt", "neu"}};
        record(1);
    }
    void record(std::int64_t dlEvent) {
        oDBU.answers[ordered] = {{std::int64_t{900}, std::string("T"), std::string("PC-7"),
                                  std::string("Max"), Value(Date{46000}), dlEvent, std::string("doc"),
                                  std::string("dbo"), std::string("Fibu"), std::int64_t{11}, std::int64_t{12},
                                  std::int64_t{13}, std::int64_t{14}, std::int64_t{15}}};
    }
    void run(const std::string& parameters = {}) {
        host.calls.clear();
        section.psCommandline = parameters;
        section.gCSVAusgabe(oDBU, 99, "Max", {}, {}, 7, para);
    }
    std::string source_of_failed_run() {
        try {
            run("/autostart");
        } catch (const AutomationError& error) {
            return error.source();
        }
        return "no error";
    }
};

TEST_F(OneSection, ReadsItsFilterAloneAndSendsNothing) {
    section.psCommandline = "/autostart";
    EXPECT_EQ(section.read_filter(oDBU, 99), "Filter");
    EXPECT_EQ(host.calls, Calls{"form"});
    EXPECT_EQ(section.section_asked, 99);
}

TEST_F(OneSection, HasNoFilterOfATextThatAFormTakesThePlaceOf) {
    section.psCommandline = "/autostart";
    section.batch_accepted = false;
    EXPECT_EQ(section.read_filter(oDBU, 99), std::nullopt) << "a person accepted the form";
    section.accepted = false;
    EXPECT_EQ(section.read_filter(oDBU, 99), std::nullopt);
}

TEST_F(OneSection, RunsInThisOrder) {
    section.poParent = &parent;
    run();
    EXPECT_EQ(host.calls, (Calls{"form", "names", "gRefresh", "CREATE TABLE #Auswahl", log_table_query,
                                 "msWHERE", ordered, "new writer", "writer 1 opens Prot_Muster.csv",
                                 "gRefresh", "gSetFortschritt", caption_query, "writer 1 shows"}));
    EXPECT_EQ(section.section_asked, 99);
    EXPECT_EQ(host.written.files.at(0).lines.at(0).at(0), "Filter");
    EXPECT_EQ(host.written.files.at(0).lines.at(2),
              (std::vector<std::string>{"11", "09.12.2025", "Max", "Feld", "geändert", "alt", "neu", "PC-7",
                                        "Fibu", "Standardbenutzer"}));
}

TEST_F(OneSection, TellsTheHostWhatIsSelectedWhetherOrNotThereIsAnything) {
    oDBU.answers.erase(ordered);
    run("/autostart");
    EXPECT_EQ(host.selections, std::vector<std::string>{"Filter"});
    section.pbLoeschen = true;
    run();
    EXPECT_EQ(host.selections, (std::vector<std::string>{"Filter", "Filter"})) << "a deletion, too";
    section.accepted = false;
    run();
    EXPECT_EQ(host.selections.size(), 2U) << "nothing is selected";
}

TEST_F(OneSection, EndsWithAFormThatIsNotAccepted) {
    section.accepted = false;
    section.poParent = &parent;
    run();
    EXPECT_EQ(host.calls, Calls{"form"});
    EXPECT_EQ(section.gCSVFile, "");
}

TEST_F(OneSection, NamesItsFileByWhatItIsCalledBehindTheForm) {
    const struct {
        const char* word;
        const char* parameters;
        const char* file;
        const char* why;
    } rows[] = {
        {"Kunden", "", "Prot_Kunden.csv", "interactive"},
        {"Lieferanten", "/autostart", "Prot_Lieferanten_20261115_100715.csv", "a batch run has a stamp"},
    };
    for (const auto& row : rows) {
        section.word = row.word;
        run(row.parameters);
        EXPECT_EQ(section.gCSVFile, row.file) << row.why;
        EXPECT_EQ(host.written.files.back().name, row.file) << row.why;
        EXPECT_EQ(host.written.files.back().asked, section.psCommandline.empty()) << row.why;
        EXPECT_EQ(host.written.files.back().shown, section.psCommandline.empty()) << row.why;
    }
}

TEST_F(OneSection, IsInteractiveWhenItsFormDoesNotTakeTheBatchText) {
    section.batch_accepted = false;
    run("/unbekannt:1");
    EXPECT_EQ(section.gCSVFile, "Prot_Muster.csv");
    EXPECT_TRUE(host.written.files.at(0).asked);
    EXPECT_TRUE(host.written.files.at(0).shown);
}

TEST_F(OneSection, KeepsTheNameThatThePersonGaveTheFile) {
    host.written.chosen_name = "mein.csv";
    run();
    EXPECT_EQ(section.gCSVFile, "mein.csv");
}

TEST_F(OneSection, SaysThatThereIsNothingInABoxOfItsOwnStyle) {
    oDBU.answers.erase(ordered);
    for (const BoxStyle style : {BoxStyle::exclamation, BoxStyle::information}) {
        host.boxes.clear();
        section.no_data = style;
        run();
        EXPECT_EQ(host.boxes,
                  (std::vector<test::ShownBox>{{"Keine Daten vorhanden!", style, "Protokollierung"}}));
    }
    EXPECT_EQ(host.writers, 0);
}

TEST_F(OneSection, LeavesAStampedFileThatSaysSoInABatchRun) {
    oDBU.answers.erase(ordered);
    run("/autostart/sektion:99");
    EXPECT_TRUE(host.boxes.empty());
    EXPECT_EQ(host.written.files.at(0).name, "Prot_Muster_20261115_100715.csv");
    EXPECT_EQ(host.written.files.at(0).lines.at(0).at(0), "Keine Daten vorhanden!");
}

TEST_F(OneSection, DeletesWithoutReadingARecordOrOpeningAFile) {
    const std::string condition = " tProtokoll WHERE dcUser = 'Max' AND  dcTable = 'T'";
    oDBU.answers["SELECT COUNT(*) FROM" + condition] = {{std::int64_t{3}}};
    host.answer = BoxAnswer::yes;
    section.pbLoeschen = true;
    section.poParent = &parent;
    run();
    EXPECT_EQ(host.calls,
              (Calls{"form", "names", "gRefresh", "CREATE TABLE #Auswahl", log_table_query, "msWHERE",
                     log_table_query, "SELECT COUNT(*) FROM" + condition,
                     "DELETE tProtokollMemo WHERE flProtokoll in (SELECT idProtokoll FROM" + condition + ")",
                     "DELETE" + condition}));
    for (const std::string& statement : oDBU.statements)
        EXPECT_FALSE(statement.starts_with("array: ")) << statement;
}

TEST_F(OneSection, PutsItsNamesIntoTheSourceOfAnError) {
    const std::string stamp = PROT_STAMP "|srvprotqrbcsv|";
    const std::string end = "\r\nProtTestClass.gCSVAusgabe";
    oDBU.failures.emplace(ordered, server_error("gesperrt"));
    EXPECT_EQ(source_of_failed_run(), stamp + "Testserver" + end) << "the main query";
    oDBU.failures.clear();
    oDBU.failures.emplace("CREATE TABLE #Auswahl", server_error("voll"));
    EXPECT_EQ(source_of_failed_run(), stamp + "Testserver" + end) << "the selection";
    oDBU.failures.clear();
    for (const char* loop : {"mAusgabeCSV", "mbAusgabeCSV"}) {
        section.writer_loop = loop;
        record(3);
        EXPECT_EQ(source_of_failed_run(), stamp + "srvProtQRBCsv\r\nProtTestClass." + loop + end);
        record(1);
        section.lines_fail = true;
        EXPECT_EQ(source_of_failed_run(), stamp + "Testserver\r\nProtTestClass." + loop + end);
        section.lines_fail = false;
    }
}

/// A database whose records come one in a batch, or fail behind some.
class StreamingDatabase : public TellingDatabase {
public:
    using TellingDatabase::TellingDatabase;
    std::size_t good_batches = 0;

    std::unique_ptr<RowStream> query_rows(std::string_view) override {
        std::vector<test::ScriptedRows::Batch> batches(good_batches + 1);
        for (test::ScriptedRows::Batch& batch : batches) {
            batch.rows = RowSet(log_columns);
            test::add_record(batch.rows, {.document = "doc"});
        }
        batches.back().failure = server_error("verbindung weg");
        return std::make_unique<test::ScriptedRows>(std::move(batches), stream_calls);
    }

    Calls stream_calls;
};

TEST_F(OneSection, PutsItsWriterLoopIntoTheSourceOnlyWhenTheFirstRecordsWereThere) {
    const std::string stamp = PROT_STAMP "|srvprotqrbcsv|Testserver";
    const std::string end = "\r\nProtTestClass.gCSVAusgabe";
    StreamingDatabase database(host.calls);
    database.answers = oDBU.answers;
    const struct {
        std::size_t good_batches;
        std::string source;
        std::size_t files;
    } rows[] = {{0, stamp + end, 0}, {1, stamp + "\r\nProtTestClass.mAusgabeCSV" + end, 1}};
    for (const auto& row : rows) {
        database.good_batches = row.good_batches;
        section.psCommandline = "/autostart";
        try {
            section.gCSVAusgabe(database, 99, "Max", {}, {}, 7, para);
            FAIL() << "the failure did not rise";
        } catch (const AutomationError& error) {
            EXPECT_EQ(error.source(), row.source);
            EXPECT_EQ(error.description(), "verbindung weg");
        }
        EXPECT_EQ(host.written.files.size(), row.files);
        EXPECT_EQ(host.written.files.empty() || !host.written.files.back().closed, true);
    }
}

TEST_F(OneSection, CallsItsWriterLoopMbAusgabeCsvUnlessItSaysElse) {
    struct Bare : SectionRun {
        explicit Bare(Environment& environment) : SectionRun(environment, "Bare") {}
        bool get_filter(Database&, std::int32_t, std::string&) override { return false; }
        Names names() const override { return {}; }
        std::string msWHERE() const override { return {}; }
        std::unique_ptr<SectionLines> lines(prot::Run&) const override { return nullptr; }
    } bare(host.environment);
    EXPECT_EQ(bare.names().writer_loop, "mbAusgabeCSV");
    EXPECT_EQ(bare.names().no_data, BoxStyle::information);
}

TEST_F(OneSection, KeepsItsWriterFromOneFileToTheNext) {
    run("/autostart");
    run("/autostart");
    EXPECT_EQ(host.writers, 1);
    EXPECT_EQ(host.written.files.size(), 2U);
    EXPECT_TRUE(host.written.files.at(1).closed);
}

TEST_F(OneSection, DropsTheWriterOfAFailedFileAtOnce) {
    record(3);
    EXPECT_NE(source_of_failed_run(), "no error");
    EXPECT_EQ(host.calls.back(), "writer 1 gone") << "and with it the unfinished file";
    record(1);
    run("/autostart");
    EXPECT_EQ(host.writers, 2);
    EXPECT_TRUE(host.written.files.back().closed);
}

TEST_F(OneSection, RemembersNothingFromOneRunToTheNext) {
    run("/autostart");
    oDBU.answers[caption_query] = {{std::string("Neues Feld")}};
    section.filter = "anderer Filter";
    section.word = "Anderes";
    run("/autostart");
    EXPECT_EQ(host.written.files.at(1).name, "Prot_Anderes_20261115_100715.csv");
    EXPECT_EQ(host.written.files.at(1).lines.at(0).at(0), "anderer Filter");
    EXPECT_EQ(host.written.files.at(1).lines.at(2).at(3), "Neues Feld");
}

TEST_F(OneSection, RunsWithoutAParent) {
    run("/autostart");
    EXPECT_EQ(host.written.files.at(0).lines.size(), 3U);
}

}  // namespace
}  // namespace prot
