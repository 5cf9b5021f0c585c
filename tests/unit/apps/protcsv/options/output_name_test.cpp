#include "apps/protcsv/options/output_name.h"

#include <gtest/gtest.h>

#include "apps/protcsv/options/usage_error.h"
#include "tests/unit/support/fakes.h"
#include "tests/unit/support/temporary_folder.h"

namespace prot {
namespace {

const OutputFacts facts{"open-items", "k7", {2026, 4, 1, 2, 15, 9}};

TEST(OutputName, PutsTheFactsForTheirWords) {
    EXPECT_EQ(output_name("{section}_{client}_{date}_{time}.csv", facts),
              "open-items_k7_20260401_021509.csv");
    EXPECT_EQ(output_name("{date}{date}", facts), "2026040120260401");
    EXPECT_EQ(output_name("ohne.csv", facts), "ohne.csv");
}

TEST(OutputName, RefusesAnyOtherWord) {
    for (const char* pattern : {"{bereich}", "{", "{date", "a{}", "{Date}", "{{date}}"})
        EXPECT_THROW(require_output_pattern(pattern), UsageError) << pattern;
    EXPECT_NO_THROW(require_output_pattern("}{date}"));
}

TEST(OutputName, KnowsWhetherItAsksForTheClient) {
    EXPECT_TRUE(asks_for_client("a/{client}.csv"));
    EXPECT_FALSE(asks_for_client("client{date}"));
}

TEST(OutputName, FindsTheClientAsTheSectionsReadIt) {
    test::FakeHost host;
    const struct {
        const char* parameters;
        const char* client;
        const char* why;
    } cases[] = {
        {"/autostart/mandant:123", "123", "a client"},
        {"/autostart/mandant:m123", "123", "with its letter"},
        {"/Autostart/Mandant:K7", "k7", "an office"},
        {"/mandant:123/autostart", "alle", "before autostart it does not count"},
        {"/autostart", "alle", "all of them"},
        {"/autostart/mandant:", "alle", "empty"},
        {"/autostart/mandant:abc", "alle", "no number"},
        {"/autostart/mandant:1/mandant:2", "2", "the last one counts"},
        {"/autostart/mandant:../../x", "alle", "never a path"},
    };
    for (const auto& row : cases)
        EXPECT_EQ(client_of(row.parameters, host.environment), row.client) << row.why;
}

TEST(OutputName, GetsAnEndingWhereItHasNone) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "ordner");
    const struct {
        const char* name;
        const char* ending;
    } cases[] = {
        {"kurse", ".csv"},        {"kurse.csv", ""},  {"kurse.txt", ""}, {"Kurse 31.12.2025", ".csv"},
        {"ab/kurse", ".csv"},     {"kurse.", ".csv"}, {"ordner", ""},    {"ordner/", ""},
        {"2026.01/kurse", ".csv"}};
    for (const auto& row : cases)
        EXPECT_EQ(with_csv_ending(row.name, folder.path()), std::string(row.name) + row.ending) << row.name;
}

}  // namespace
}  // namespace prot
