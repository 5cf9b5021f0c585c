#include "apps/protcsv/statement_log.h"

#include <chrono>
#include <type_traits>

#include <nlohmann/json.hpp>

#include "platform/automation/error.h"
#include "platform/portable/files/paths.h"

namespace prot {

namespace {

using Clock = std::chrono::steady_clock;

double milliseconds_since(Clock::time_point start) {
    const auto elapsed = std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - start);
    return static_cast<double>(elapsed.count()) / 1000;
}

void write_line(std::ostream& file, const nlohmann::ordered_json& line) {
    file << line.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace) << std::endl;
}

}  // namespace

StatementLog::StatementLog(Database& database, const std::string& path)
    : ForwardingDatabase(database), path_(path), file_(text_path(path), std::ios::binary | std::ios::trunc) {
    if (!file_)
        throw AutomationError(ErrorNumber::file,
                              "Die Datei „" + path_ + "“ lässt sich nicht zum Schreiben öffnen.");
}

void StatementLog::close() {
    file_.close();
    if (!file_)
        throw AutomationError(ErrorNumber::file, "Die Datei „" + path_ + "“ ist unvollständig geschrieben.");
}

template <typename Send>
auto StatementLog::logged(std::string_view operation, std::string_view sql, Send send) {
    nlohmann::ordered_json line = {{"op", operation}, {"sql", sql}};
    const Clock::time_point start = Clock::now();
    try {
        if constexpr (std::is_void_v<decltype(send())>) {
            send();
            line["ms"] = milliseconds_since(start);
            write_line(file_, line);
        } else {
            auto result = send();
            if constexpr (std::is_same_v<decltype(result), RowSet>) line["rows"] = result.rows();
            line["ms"] = milliseconds_since(start);
            write_line(file_, line);
            return result;
        }
    } catch (const std::exception& error) {
        line["ms"] = milliseconds_since(start);
        line["error"] = error.what();
        write_line(file_, line);
        throw;
    }
}

Value StatementLog::query_value(std::string_view sql) {
    return logged("value", sql, [&] { return ForwardingDatabase::query_value(sql); });
}

RowSet StatementLog::query_array(std::string_view sql) {
    return logged("array", sql, [&] { return ForwardingDatabase::query_array(sql); });
}

void StatementLog::execute(std::string_view sql) {
    logged("execute", sql, [&] { ForwardingDatabase::execute(sql); });
}

}  // namespace prot
