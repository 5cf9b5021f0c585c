#include "apps/protcsv/options/request_words.h"

#include "apps/protcsv/options/option_values.h"
#include "platform/automation/date_text.h"

namespace prot {

namespace {

struct EventWord {
    std::int32_t bit;
    std::string_view word;
};
constexpr EventWord event_words[] = {{1, "angelegt"}, {2, "geändert"}, {4, "gelöscht"}};

}  // namespace

std::string period_text(const LogRequest& request) {
    if (request.from.is_null() && request.to.is_null()) return "alle Tage";
    if (request.to.is_null()) return "ab " + to_text(request.from);
    if (request.from.is_null()) return "bis " + to_text(request.to);
    return to_text(request.from) + " bis " + to_text(request.to);
}

std::string user_text(const LogRequest& request) { return request.user.empty() ? "alle" : request.user; }

std::string events_text(const LogRequest& request) {
    if (request.events == all_events) return "alle";
    std::string text;
    for (const auto& [bit, word] : event_words)
        if ((request.events & bit) != 0) text.append(text.empty() ? "" : ", ").append(word);
    return text.empty() ? "keine" : text;
}

std::string form_notice(const LogRequest& request, bool deletes) {
    const std::string besides = "Zeitraum: " + period_text(request) +
                                "   Mitarbeiter: " + user_text(request) +
                                "   Ereignisse: " + events_text(request);
    return deletes ? "Die Protokollsätze, die hier gewählt werden, werden gelöscht.\n" + besides : besides;
}

}  // namespace prot
