#include "apps/protcsv/options/request_words.h"

#include <gtest/gtest.h>

#include "platform/automation/date_text.h"

namespace prot {
namespace {

LogRequest request(const char* from, const char* to) {
    LogRequest request;
    if (*from != '\0') request.from = to_date(from);
    if (*to != '\0') request.to = to_date(to);
    return request;
}

TEST(RequestWords, SayThePeriod) {
    EXPECT_EQ(period_text(request("", "")), "alle Tage");
    EXPECT_EQ(period_text(request("01.01.2026", "")), "ab 01.01.2026");
    EXPECT_EQ(period_text(request("", "31.12.2026")), "bis 31.12.2026");
    EXPECT_EQ(period_text(request("01.01.2026", "31.12.2026")), "01.01.2026 bis 31.12.2026");
}

TEST(RequestWords, SayTheUserAndTheEvents) {
    LogRequest asked;
    EXPECT_EQ(user_text(asked), "alle");
    asked.user = "Seán O'Brien";
    EXPECT_EQ(user_text(asked), "Seán O'Brien");
    const std::pair<std::int32_t, const char*> rows[] = {
        {0, "keine"},    {1, "angelegt"},           {2, "geändert"},           {3, "angelegt, geändert"},
        {4, "gelöscht"}, {5, "angelegt, gelöscht"}, {6, "geändert, gelöscht"}, {7, "alle"}};
    for (const auto& [events, text] : rows) {
        asked.events = events;
        EXPECT_EQ(events_text(asked), text);
    }
}

TEST(RequestWords, SayAboveAFormWhatElseIsChosenAndThatItDeletes) {
    const LogRequest asked = request("", "31.12.2015");
    EXPECT_EQ(form_notice(asked, false), "Zeitraum: bis 31.12.2015   Mitarbeiter: alle   Ereignisse: alle");
    EXPECT_EQ(form_notice(asked, true),
              "Die Protokollsätze, die hier gewählt werden, werden gelöscht.\n"
              "Zeitraum: bis 31.12.2015   Mitarbeiter: alle   Ereignisse: alle");
}

}  // namespace
}  // namespace prot
