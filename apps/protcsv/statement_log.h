#pragma once

#include <fstream>
#include <string>

#include "platform/forwarding_database.h"

namespace prot {

/// A database object that writes down every statement before it hands the result on: one JSON object a line,
///   {"op":"value"|"array"|"execute","sql":…,"rows":n,"ms":n,"error":…}
/// sql is the text as given (bytes that are not UTF-8 become U+FFFD); rows stands for array only, error only
/// when the statement failed. Dialect questions are not statements and are not written.
class StatementLog : public ForwardingDatabase {
public:
    /// Creates the file `path`, replacing an earlier one. AutomationError (file) when that is impossible.
    StatementLog(Database& database, const std::string& path);

    Value query_value(std::string_view sql) override;
    RowSet query_array(std::string_view sql) override;
    void execute(std::string_view sql) override;

    /// Raises AutomationError (file) when a line could not be written.
    void close();

private:
    template <typename Send>
    auto logged(std::string_view operation, std::string_view sql, Send send);

    std::string path_;
    std::ofstream file_;
};

}  // namespace prot
