#pragma once

#include <cstdint>
#include <fstream>
#include <memory>
#include <string>

#include "platform/forwarding_database.h"

namespace prot {

/// A database object that writes down every statement before it hands the result on: one JSON object a line,
///   {"nr":n,"op":"value"|"array"|"execute","sql":…,"rows":n,"ms":n,"error":…}
/// nr counts the statements in the order of sending, from 1; sql is the text as given (bytes that are not
/// UTF-8 become U+FFFD); rows stands for array only, error only when the statement failed. A query whose rows
/// come in batches has one line, written with its last row, or when it is given up: ms is the time spent on
/// all of them, and of rows read anew only the last reading counts as rows. Dialect questions are not
/// statements and are not written.
inline constexpr std::string_view statement_log_beginning = "{\"nr\":";  ///< of its every line

class StatementLog : public ForwardingDatabase {
public:
    /// Creates the file `path`, replacing an earlier one. AutomationError (file) when that is impossible.
    StatementLog(Database& database, const std::string& path);

    Value query_value(std::string_view sql) override;
    RowSet query_array(std::string_view sql) override;
    std::unique_ptr<RowStream> query_rows(std::string_view sql) override;
    void execute(std::string_view sql) override;

    /// Raises AutomationError (file) when a line could not be written.
    void close();

private:
    class Line;
    class LoggedRows;

    std::string path_;
    std::ofstream file_;
    std::int64_t sent_ = 0;
};

}  // namespace prot
