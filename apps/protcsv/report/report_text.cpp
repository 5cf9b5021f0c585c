#include "apps/protcsv/report/report_text.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "apps/protcsv/commands.h"
#include "apps/protcsv/database/open_database.h"
#include "apps/protcsv/options/option_table.h"
#include "apps/protcsv/report/json_text.h"
#include "core/Prot0000UtilitiesBAS.h"
#include "platform/portable/files/paths.h"
#include "platform/portable/time/system_clock.h"

namespace prot {

namespace {

using Json = nlohmann::ordered_json;

struct Ending {
    int status;
    std::string_view outcome;
    std::string_view message;
};

// clang-format off
constexpr Ending endings[] = {
    {exit_done,       "written",    ""},
    {exit_error,      "failed",     "Der Lauf ist gescheitert."},
    {exit_usage,      "refused",    "Der Lauf ist abgelehnt."},
    {exit_cancelled,  "cancelled",  "Der Lauf ist abgebrochen."},
    {exit_incomplete, "incomplete", "Geschrieben, aber unvollständig."},
    {exit_no_data,    "no_data",    "Keine Daten vorhanden!"},
};
constexpr Ending not_ended = {0, "running", "Der Lauf ist nicht zu seinem Ende gekommen."};

struct ReasonName {
    LeftOut reason;
    std::string_view name;
};
constexpr ReasonName reason_names[] = {
    {LeftOut::without_caption,     "without_caption"},
    {LeftOut::not_exported,        "not_exported"},
    {LeftOut::unreadable_document, "unreadable_document"},
    {LeftOut::without_changes,     "without_changes"},
    {LeftOut::without_moment,      "without_moment"},
    {LeftOut::not_described,       "not_described"},
};
// clang-format on
static_assert(std::size(reason_names) == left_out_reasons);

/// Null for an empty text.
Json text_or_null(std::string_view text) { return text.empty() ? Json() : Json(text); }

Json day(Date date) {
    if (date.is_null()) return {};
    const CivilTime civil = to_civil(date);
    std::array<char, 40> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02d-%02d", civil.year, civil.month, civil.day);
    return text.data();
}

Json events(std::int32_t mask) {
    Json names = Json::array();
    for (const auto& [bit, name] :
         {std::pair{1, "created"}, std::pair{2, "changed"}, std::pair{4, "deleted"}})
        if (mask & bit) names.push_back(name);
    return names;
}

std::string absolute(const std::string& path) {
    return path_text(shortest_path(absolute_path(text_path(path))));
}

Ending ending_of(const RunAccount& account, int status) {
    if (status == exit_done && account.deletion) return {status, account.deletion->state, ""};
    if (status == exit_done && account.notices.records() == 0) status = exit_no_data;
    return *std::ranges::find(endings, status, &Ending::status);
}

void add_end(Json& report, const RunAccount& account, std::optional<int> status) {
    const Ending ending = status ? ending_of(account, *status) : not_ended;
    report["status"] = status ? Json(*status) : Json();
    report["outcome"] = ending.outcome;
    report["message"] = account.message.empty() ? ending.message : std::string_view(account.message);
    report["started"] = iso_time(account.started);
    report["ended"] = status ? Json(iso_time(std::chrono::system_clock::now())) : Json();
}

void add_selection(Json& report, const Options& options, SectionTable sections, const RunAccount& account) {
    const LogRequest* const request = account.request ? &*account.request : nullptr;
    report["section"] = nullptr;
    if (request != nullptr)
        if (const auto section = std::ranges::find(sections, request->section, &Section::number);
            section != sections.end())
            report["section"] = {
                {"number", section->number}, {"name", section->name}, {"title", section->title}};
    report["asked"] = {{"user", request ? text_or_null(request->user) : Json()},
                       {"from", request ? day(request->from) : Json()},
                       {"to", request ? day(request->to) : Json()},
                       {"events", request ? events(request->events) : Json()},
                       {"parameters", text_or_null(without_passwords(options.parameters))}};
    report["understood"] = text_or_null(account.notices.filter_text());
}

Json left_out(const NoticesReport& notices) {
    Json reasons = Json::array();
    for (const ReasonName& row : reason_names)
        if (const CountedRecords& records = notices.left_out(row.reason); records.count > 0)
            reasons.push_back({{"reason", row.name}, {"count", records.count}, {"records", records.first}});
    return {{"count", notices.left_out()}, {"reasons", reasons}};
}

Json fields_without_caption(const NoticesReport& notices) {
    const std::vector<CountedField> all = notices.fields_without_caption();
    std::int64_t count = 0;
    Json listed = Json::array();
    for (const CountedField& field : all) {
        count += field.count;
        if (listed.size() < NoticesReport::most_records)
            listed.push_back({{"table", field.table}, {"column", field.column}, {"count", field.count}});
    }
    return {{"count", count}, {"columns", all.size()}, {"first", listed}};
}

Json replaced_characters(const ReplacedCharacters& replaced) {
    Json places = Json::array();
    for (const ReplacedCharacters::Place& place : replaced.first)
        places.push_back({{"line", place.line}, {"column", place.column}, {"character", place.character}});
    return {{"count", replaced.count}, {"first", places}};
}

void add_counts(Json& report, const RunAccount& account) {
    const NoticesReport& notices = account.notices;
    report["statements"] = account.statements;
    report["records"] = notices.records();
    report["lines"] = notices.lines();
    report["records_without_line"] = left_out(notices);
    report["fields_without_caption"] = fields_without_caption(notices);
    report["failed_lookups"] = {{"count", notices.failed_lookups()},
                                {"first", text_or_null(notices.first_failure())}};
    report["replaced_characters"] = replaced_characters(account.replaced);
    report["listed_at_most"] = NoticesReport::most_records;
}

void add_file(Json& report, RunAccount& account) {
    report["file"] = nullptr;
    if (account.file.empty()) return;
    if (account.file_sum.empty() && account.sum) account.file_sum = account.sum->hexadecimal();
    report["file"] = {{"path", account.file == standard_stream ? account.file : absolute(account.file)},
                      {"bytes", account.bytes},
                      {"sha256", text_or_null(account.file_sum)}};
}

void add_deletion(Json& report, const RunAccount& account) {
    if (!account.deletion) return;
    const DeletionAccount& deletion = *account.deletion;
    Json& json = report["deletion"];
    json = {{"state", deletion.state}, {"records", deletion.records}, {"memos", deletion.memos}};
    json["archive"] = nullptr;
    if (deletion.folder.empty()) return;
    json["archive"] = {{"folder", absolute(deletion.folder)},
                       {"database",
                        {{"path", absolute(deletion.database.path)},
                         {"bytes", deletion.database.bytes},
                         {"sha256", deletion.database.sha256}}},
                       {"records_not_exported",
                        {{"count", deletion.not_exported.count}, {"records", deletion.not_exported.first}}}};
}

/// What a connection string holds besides is nobody's business.
void add_database(Json& report, const Options& options) {
    const DatabaseAddress& database = options.database;
    report["database"] = nullptr;
    if (!database.file.empty()) report["database"] = absolute(database.file);
    if (!database.odbc) return;
    report["database"] = database.shown();
    const std::string_view encryption = encryption_of(options);
    report["encryption"] = encryption.empty() ? Json() : Json(encryption);
}

}  // namespace

std::string report_text(const Options& options, SectionTable sections, RunAccount& account,
                        std::optional<int> status) {
    Json report;
    report["report"] = report_format;
    report["program"] = "protcsv";
    report["version"] = PROT_VERSION;
    report["command"] = command_name(options.command);
    add_end(report, account, status);
    add_database(report, options);
    add_selection(report, options, sections, account);
    add_counts(report, account);
    add_file(report, account);
    add_deletion(report, account);
    return json_text(report, 2) + '\n';
}

std::string without_passwords(std::string_view parameters) {
    std::string text;
    for (std::size_t at = 0; at <= parameters.size();) {
        const std::size_t end = std::min(parameters.find('/', at), parameters.size());
        const std::string_view item = parameters.substr(at, end - at);
        if (at > 0) text += '/';
        if (pbCommandVorhanden(item, "pwd:"))
            text.append(item.substr(0, item.find(':') + 1)).append("***");
        else
            text.append(item);
        at = end + 1;
    }
    return text;
}

}  // namespace prot
