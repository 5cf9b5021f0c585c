#include "core/export_frame.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/unit/support/fakes.h"

namespace prot {
namespace {

using Calls = std::vector<std::string>;

/// Lines without cells of their own.
class PlainLines : public SectionLines {
public:
    bool describe_record(const LogRow&, CsvLine&) override { return true; }
    std::string_view caption(std::string_view field, std::string_view, const LogRow&) override {
        return field;
    }
    void translate_values(std::string_view, std::string_view, const LogRow&, CsvLine&) override {}
};

class WrittenFile : public testing::Test {
protected:
    test::FakeHost host;
    test::FakeDatabase oDBU;
    test::FakeParent parent;

    static RowSet rows_of(std::size_t columns, std::size_t count, std::int32_t first) {
        RowSet rows(columns);
        rows.set_first_row(first);
        for (std::size_t i = 0; i < count; ++i) rows.add_row();
        return rows;
    }

    void write(const RowSet& rows) {
        prot::Run run{host.environment, oDBU};
        test::FakeCsvWriter writer(host.written);
        PlainLines lines;
        std::string file_name = "x.csv";
        ExportFrame(run, &parent, 9).write_file(writer, false, file_name, "", {}, rows, lines);
    }
};

TEST_F(WrittenFile, TellsProgressInTheHostsOwnRowNumbers) {
    constexpr std::int32_t largest = std::numeric_limits<std::int32_t>::max();
    const struct {
        std::int32_t first;
        Calls calls;
        const char* why;
    } cases[] = {
        {0,
         {"gRefresh", "gSetFortschritt 0/2", "gSetFortschritt 1/2"},
         "from 0 the second number is the count"},
        {1,
         {"gRefresh", "gSetFortschritt 1/3", "gSetFortschritt 2/3"},
         "from 1 it is the upper bound plus one"},
        {-5, {"gRefresh", "gSetFortschritt -5/-3", "gSetFortschritt -4/-3"}, "bounds may be negative"},
        {largest - 1,
         {"gRefresh", "gSetFortschritt 2147483646/2147483647", "gSetFortschritt 2147483647/2147483647"},
         "the number behind the largest does not exist"},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.why);
        parent.calls.clear();
        write(rows_of(log_columns, 2, row.first));
        EXPECT_EQ(parent.calls, row.calls);
    }
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

}  // namespace
}  // namespace prot
