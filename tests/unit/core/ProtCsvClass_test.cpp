#include "core/ProtCsvClass.h"

#include <gtest/gtest.h>

#include "core/event_names.h"
#include "tests/unit/support/fakes.h"

namespace prot {
namespace {

using test::FakeDatabase;
using test::FakeHost;
using test::FakeParent;
using test::server_error;

/// What the exporters below were given.
struct Call {
    int section;
    ProgressParent* parent;
    std::string commandline;
    bool deletion;
    Database* database;
    std::int32_t lSection;
    std::string user;
    Date from, to;
    std::int32_t events;
    Value* para;
};
std::vector<Call> calls;
bool fail_next = false;

template <int Number>
class RecordingExporter : public SectionExporter {
public:
    void gCSVAusgabe(Database& oDBU, std::int32_t lSection, const std::string& sUser, Date dtVon, Date dtBis,
                     std::int32_t lAktion, Value& vPara) override {
        calls.push_back({Number, poParent, psCommandline, pbLoeschen, &oDBU, lSection, sUser, dtVon, dtBis,
                         lAktion, &vPara});
        psCommandline.clear();  // as a dialog does with a text that it does not accept
        if (fail_next) throw server_error("kaputt");
    }
};

template <int Number>
std::unique_ptr<SectionExporter> create(Environment&) {
    return std::make_unique<RecordingExporter<Number>>();
}

constexpr Section table[] = {{8, "a", "A", create<8>}, {9, "b", "B", create<8>}, {15, "c", "C", create<15>}};

class EntryClass : public testing::Test {
protected:
    FakeHost host;
    FakeDatabase oDBU;
    FakeParent parent;
    Value para = std::string("spare");
    ProtCsvClass entry{host.environment, table};
    EntryClass() {
        calls.clear();
        fail_next = false;
    }
    void run(std::int32_t section) { entry.gCSVAusgabe(oDBU, section, "Max", Date{1}, Date{2}, 5, para); }
};

TEST_F(EntryClass, HandsSettingsAndArgumentsToTheSectionsExporter) {
    entry.poParent = &parent;
    entry.psCommandline = "/autostart";
    entry.pbLoeschen = true;
    run(15);
    ASSERT_EQ(calls.size(), 1U);
    const Call& call = calls[0];
    EXPECT_EQ(call.section, 15);
    EXPECT_EQ(call.parent, &parent);
    EXPECT_EQ(call.commandline, "/autostart");
    EXPECT_TRUE(call.deletion);
    EXPECT_EQ(call.database, &oDBU);
    EXPECT_EQ(call.lSection, 15);
    EXPECT_EQ(call.user, "Max");
    EXPECT_EQ(call.from, Date{1});
    EXPECT_EQ(call.to, Date{2});
    EXPECT_EQ(call.events, 5);
    EXPECT_EQ(call.para, &para);
}

TEST_F(EntryClass, GivesTwoSectionsToOneExporterThatTellsThemApartByNumber) {
    run(8);
    run(9);
    ASSERT_EQ(calls.size(), 2U);
    EXPECT_EQ(calls[0].section, calls[1].section);
    EXPECT_EQ(calls[0].lSection, 8);
    EXPECT_EQ(calls[1].lSection, 9);
}

TEST_F(EntryClass, KeepsItsSettingsFromOneCallToTheNext) {
    entry.psCommandline = "/autostart";
    entry.pbLoeschen = true;
    run(15);
    run(15);
    ASSERT_EQ(calls.size(), 2U);
    EXPECT_EQ(calls[1].commandline, "/autostart");
    EXPECT_TRUE(calls[1].deletion);
}

TEST_F(EntryClass, AnUnknownSectionDoesNothingButFillTheEventNames) {
    run(7);
    EXPECT_TRUE(calls.empty());
    EXPECT_TRUE(oDBU.statements.empty());
    EXPECT_TRUE(host.boxes.empty());
    EXPECT_EQ(event_name(0), "angelegt");
    EXPECT_EQ(event_name(1), "geändert");
    EXPECT_EQ(event_name(2), "gelöscht");
}

TEST_F(EntryClass, ReportsItsErrorsUnderTheNameGCSVFile) {
    fail_next = true;
    try {
        run(15);
        FAIL();
    } catch (const AutomationError& error) {
        EXPECT_EQ(error.number(), -2147217865);
        EXPECT_EQ(error.description(), "kaputt");
        EXPECT_EQ(error.source(), PROT_STAMP "|srvprotqrbcsv|Testserver\r\nProtCsvClass.gCSVFile");
    }
}

/// In a process of its own, in which nothing has filled the table.
TEST(EventNamesDeathTest, AreEmptyUntilTheEntryClassHasRun) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(std::exit(event_name(0).empty() && event_name(1).empty() && event_name(2).empty() ? 0 : 1),
                testing::ExitedWithCode(0), "");
}

TEST(EventNames, EndAtTwo) {
    fill_event_names();
    for (const std::int32_t event : {-1, 3, 2147483647}) {
        try {
            event_name(event);
            ADD_FAILURE() << event;
        } catch (const AutomationError& error) {
            EXPECT_EQ(error.number(), static_cast<std::int32_t>(ErrorNumber::index_out_of_range));
        }
    }
}

}  // namespace
}  // namespace prot
