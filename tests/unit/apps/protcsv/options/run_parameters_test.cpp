#include "apps/protcsv/options/run_parameters.h"

#include <gtest/gtest.h>

#include "tests/unit/support/fakes.h"

namespace prot {
namespace {

constexpr Section sections[] = {{15, "exchange-rates", "Devisenkurse", nullptr}};

LogRequest read(std::string_view parameters) {
    test::FakeHost host;
    RunParameters run = read_run_parameters(parameters, sections, host.environment);
    EXPECT_EQ(run.errors, std::vector<std::string>());
    return run.request;
}

/// The errors, one a line.
std::string refusal(std::string_view parameters) {
    test::FakeHost host;
    std::string lines;
    for (const std::string& error : read_run_parameters(parameters, sections, host.environment).errors)
        lines += (lines.empty() ? "" : "\n") + error;
    return lines;
}

TEST(RunParameters, ReadsTheHostsOwnKeys) {
    const LogRequest request = read(
        "/Sektion: 15 /mitarbeiter:Weiß/datvon:2026-01-01/datbis:31.12.2026/neu:1/autostart/vondevi:EUR");
    EXPECT_EQ(request.section, 15);
    EXPECT_EQ(request.user, "Weiß");
    EXPECT_EQ(request.from, to_date(CivilTime{2026, 1, 1}));
    EXPECT_EQ(request.to, to_date(CivilTime{2026, 12, 31}));
    EXPECT_EQ(request.events, 1);
}

TEST(RunParameters, TakesOpenBoundsAndAllKindsForWhatIsNotGiven) {
    const LogRequest request = read("/sektion:exchange-rates/datvon:/mitarbeiter: /neu:/autostart");
    EXPECT_EQ(request.section, 15);
    EXPECT_EQ(request.user, "");
    EXPECT_TRUE(request.from.is_null());
    EXPECT_TRUE(request.to.is_null());
    EXPECT_EQ(request.events, 7);
}

TEST(RunParameters, ReadsTheKindsOfEvents) {
    const struct {
        const char* keys;
        std::int32_t events;
        const char* why;
    } rows[] = {
        {"", 7, "none given: all"},
        {"/neu:1", 1, "the missing ones are 0"},
        {"/aend:ja", 2, "word"},
        {"/loe:JA", 4, "letter case is ignored"},
        {"/neu:0", 0, "one given as 0: none at all"},
        {"/neu:nein/aend:1/loe:1", 6, "all given"},
        {"/awraend:1", 7, "another key that ends alike"},
        {"/neu:1/neu:0", 1, "the first item counts"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(read("/sektion:15" + std::string(row.keys)).events, row.events) << row.why;
}

TEST(RunParameters, NamesTheKeyThatIsMissingOrUnreadable) {
    EXPECT_EQ(refusal("/autostart"), "--params: sektion fehlt, etwa /sektion:15/autostart");
    EXPECT_EQ(refusal("/sektion:/autostart"), "--params: sektion fehlt, etwa /sektion:15/autostart");
    EXPECT_EQ(refusal("/sektion:7"), "--params: sektion: „7“ ist kein Bereich; es gibt: 15 exchange-rates");
    EXPECT_EQ(refusal("/sektion:15/datbis:morgen"),
              "--params: datbis: „morgen“ ist kein Tag; erwartet wird TT.MM.JJJJ, JJJJ-MM-TT, JJJJ-MM, heute "
              "oder gestern");
    EXPECT_EQ(refusal("/sektion:15/loe:2"), "--params: loe: „2“ ist weder 1 oder ja noch 0 oder nein");
    EXPECT_EQ(
        refusal("/loe:2/datvon:31.02.2026"),
        "--params: sektion fehlt, etwa /sektion:15/autostart\n"
        "--params: datvon: „31.02.2026“ ist kein Tag; erwartet wird TT.MM.JJJJ, JJJJ-MM-TT, JJJJ-MM, heute "
        "oder gestern\n"
        "--params: loe: „2“ ist weder 1 oder ja noch 0 oder nein")
        << "all at once";
}

TEST(RunParameters, FindsAllItemsOfItsOwnKeys) {
    test::FakeHost host;
    const std::vector<HostItem> items =
        host_items("datvon:x/ NEU: 1 /mandant:5/neu/neux:1/neu:0", host.environment);
    ASSERT_EQ(items.size(), 3U);
    EXPECT_EQ(items[0].key, "datvon");
    EXPECT_EQ(items[1].item, "NEU: 1");
    EXPECT_EQ(items[1].value, "1");
    EXPECT_EQ(items[2].item, "neu:0");
}

}  // namespace
}  // namespace prot
