#include "core/Prot0000UtilitiesBAS.h"

#include <gtest/gtest.h>

#include "tests/unit/support/fakes.h"

namespace prot {
namespace {

using Parts = std::vector<std::string>;

class ParameterText : public testing::Test {
protected:
    test::FakeHost host;
    Environment& environment = host.environment;

    Parts split(std::string_view text, bool autostart = false) {
        return gCommandlineSplit(text, autostart, environment);
    }
};

TEST_F(ParameterText, AnItemHasAKeyAndAValue) {
    EXPECT_EQ(psCommand("/Sektion:15", environment), "Sektion");
    EXPECT_EQ(psComWert("/Sektion:15", environment), "15");
    EXPECT_TRUE(pbCommandVorhanden("Sektion:15", "sektion:"));
}

TEST_F(ParameterText, AnItemWithoutAColonIsFoundOnlyAsAFlag) {
    EXPECT_EQ(psCommand("/autostart", environment), "");
    EXPECT_EQ(psComWert("/autostart", environment), "");
    EXPECT_TRUE(pbCommandVorhanden("autostart", "autostart"));
}

TEST_F(ParameterText, AnItemMayHaveAnEmptyValue) {
    EXPECT_EQ(psCommand("/datvon:", environment), "datvon");
    EXPECT_EQ(psComWert("/datvon:", environment), "");
}

TEST_F(ParameterText, WithoutFrameworkEverySlashSeparates) {
    EXPECT_EQ(split("/sektion:15/mitarbeiter:A/B/autostart"),
              (Parts{"", "sektion:15", "mitarbeiter:A", "B", "autostart"}));
    EXPECT_EQ(split("ohne"), Parts{"ohne"});
    EXPECT_EQ(split(""), Parts{""});
    EXPECT_EQ(split("a//b/"), (Parts{"a", "", "b", ""}));
}

TEST_F(ParameterText, TheKeywordScanGivesItemsInTableOrderAndDropsUnknownKeys) {
    EXPECT_EQ(split("/neu:1/unbekannt:5/Auswertungsrahmen:Bilanz/login:Max/SEKTION:10/autostart"),
              (Parts{"", "login:Max", "SEKTION:10/autostart", "neu:1", "Auswertungsrahmen:Bilanz"}));
}

TEST_F(ParameterText, NamesThePartsThatNobodyReads) {
    const struct {
        const char* text;
        Parts unread;
        const char* why;
    } rows[] = {
        {"/sektion:15//x/autostart", {}, "every slash separates"},
        {" davor /x", {"davor"}, "what stands before the first slash"},
        {"davor", {"davor"}, "no slash at all"},
        {"", {}, "nothing"},
        {"/auswertungsrahmen:A/B/neu:1/autostart", {}, "a value with slashes, and a flag that counts as one"},
        {"/x:1/auswertungsrahmen:A/y:2/ neu:1", {"x:1", "y:2"}, "a scan looks for known keys alone"},
        {"/xneu:1/auswertungsrahmen:A", {"xneu:1"}, "a known key is found within an unknown one"},
        {"/neu:1/Ä/auswertungsrahmen:A/neu:0", {"neu:0"}, "the first of two counts"},
        {"mandant:5/auswertungsrahmen:A", {}, "a scan finds what stands before the first slash"},
    };
    for (const auto& row : rows) EXPECT_EQ(unread_parts(row.text), row.unread) << row.why;
}

TEST_F(ParameterText, TheKeywordScanKnowsTheseKeysInThisOrder) {
    const Parts items = {"login:1",
                         "pwd:2",
                         "nowindow:3",
                         "sektion:4",
                         "mitarbeiter:5",
                         "datvon:6",
                         "datbis:7",
                         "neu:8",
                         "aend:9",
                         "loe:10",
                         "mandant:11",
                         "mandantbis:12",
                         "stdkanz:13",
                         "kontenrahmen:14",
                         "auswertung:15",
                         "auswertungsrahmen:16",
                         "awraend:17",
                         "wirtschaftsjahr:18",
                         "vonkonto:19",
                         "biskonto:20",
                         "vondevi:21",
                         "bisdevi:22",
                         "änderungsaktion:23",
                         "fehlermeldung:24"};
    // The other way round, but for "aend:", which is also found inside "awraend:".
    std::string text = "/aend:9";
    for (auto item = items.rbegin(); item != items.rend(); ++item)
        if (*item != "aend:9") text += "/" + *item;
    Parts expected = items;
    expected.insert(expected.begin(), "");
    EXPECT_EQ(split(text), expected);
}

TEST_F(ParameterText, TheKeywordScanFindsFourKeysWithoutColon) {
    for (const std::string key : {"vonkonto", "biskonto", "vondevi", "bisdevi"})
        EXPECT_EQ(split("/" + key + "/auswertungsrahmen:X"), (Parts{"", "auswertungsrahmen:X", key}));
    for (const std::string key : {"login", "sektion", "mandant", "wirtschaftsjahr"})
        EXPECT_EQ(split("/" + key + "/auswertungsrahmen:X"), (Parts{"", "auswertungsrahmen:X"}));
}

TEST_F(ParameterText, TheKeywordScanVisitsAutostartOnlyWhenAsked) {
    EXPECT_EQ(split("/sektion:10/auswertungsrahmen:X/autostart", true),
              (Parts{"", "autostart", "sektion:10", "auswertungsrahmen:X/autostart"}));
    EXPECT_EQ(split("/autostart/auswertungsrahmen:X", true), (Parts{"", "autostart", "auswertungsrahmen:X"}));
}

TEST_F(ParameterText, AScannedValueMayHoldSlashesUntilTheNextKey) {
    EXPECT_EQ(gbCommandOk("auswertungsrahmen:", "/auswertungsrahmen:A/B/login:x", environment),
              "auswertungsrahmen:A/B");
    EXPECT_EQ(gbCommandOk("auswertungsrahmen:", "/auswertungsrahmen: A/B ", environment),
              "auswertungsrahmen: A/B");
}

TEST_F(ParameterText, AFlagWithoutColonStaysGluedToTheValueBeforeIt) {
    EXPECT_EQ(gbCommandOk("login:", "/login:Max/autostart", environment), "login:Max/autostart");
}

TEST_F(ParameterText, TheScanFindsAendAlsoInsideAwraend) {
    EXPECT_EQ(gbCommandOk("aend:", "/awraend:kto/auswertungsrahmen:X", environment), "aend:kto");
}

TEST_F(ParameterText, TheScanFindsKeysWithoutColonAtTheStartOfAnItem) {
    EXPECT_EQ(gbCommandOk("vonkonto", "/vonkonto:1000/biskonto:2000", environment), "vonkonto:1000");
}

TEST_F(ParameterText, TheScanDoesNotTakeMitarbeiterbisForMitarbeiter) {
    EXPECT_EQ(gbCommandOk("mitarbeiter:", "/mitarbeiterbis:Z", environment), "");
}

TEST_F(ParameterText, ScannedItemsKeepTheirLetterCaseAndUmlauts) {
    EXPECT_EQ(gbCommandOk("änderungsaktion:", "/Größe:Ä/ÄNDERUNGSAKTION:Üb", environment),
              "ÄNDERUNGSAKTION:Üb");
}

TEST_F(ParameterText, AFlagIsTestedAtTheStartOfItemsOnly) {
    EXPECT_TRUE(pbCommandVorhanden("  AutoStart", "autostart"));
    EXPECT_TRUE(pbCommandVorhanden("/sektion:15/AUTOSTART", "autostart"));
    EXPECT_TRUE(pbCommandVorhanden("autostart", "AutoStart"));
    EXPECT_FALSE(pbCommandVorhanden("keinautostart", "autostart"));
    EXPECT_FALSE(pbCommandVorhanden("", "autostart"));
}

TEST_F(ParameterText, AMalformedItemHasNeitherKeyNorValue) {
    EXPECT_EQ(psCommand("sektion:15", environment), "");
    EXPECT_EQ(psComWert("sektion:15", environment), "");
    EXPECT_EQ(psCommand("", environment), "");
    EXPECT_EQ(psCommand("/:15", environment), "");
    EXPECT_EQ(psComWert("/:15", environment), "15");
    EXPECT_EQ(psCommand("  /a:b:c  ", environment), "a");
    EXPECT_EQ(psComWert("  /a:b:c  ", environment), "b:c") << "the first colon separates";
    EXPECT_TRUE(host.errors.empty());
}

}  // namespace
}  // namespace prot
