#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/windows/com/variant.h"
#include "tests/com/client/variants.h"

namespace prot::test {

/// An error that a host's object raises.
struct HostError {
    HRESULT number;
    std::string source, description;
};

/// What a host's database knows. A statement is answered by the latest entry whose piece occurs in it; one
/// without an entry is an error.
class HostAnswers {
public:
    using Answer = std::function<Variant()>;

    void on(const std::string& piece, Answer answer) { entries_.emplace_back(piece, std::move(answer)); }
    void on(const std::string& piece, const Table& rows, FirstIndices first = {}) {
        on(piece, [rows, first] { return array_of(rows, first); });
    }
    void value_on(const std::string& piece, const Value& value) {
        on(piece, [value] { return variant_of(value); });
    }
    void fail_on(const std::string& piece, const HostError& error) {
        on(piece, [error]() -> Variant { throw error; });
    }

    /// Notes the call and answers it. Raises HostError.
    Variant ask(const std::string& member, const std::string& statement);

    std::vector<std::string> asked;  ///< "QueryValue: SELECT …"
    /// How often `member` was called.
    int calls_of(const std::string& member) const;

private:
    std::vector<std::pair<std::string, Answer>> entries_;
};

/// A log of three records: one created, one changed without a login, one deleted with its rate.
HostAnswers sample_log();

/// The pieces of the statements that a run of it sends.
inline constexpr const char* currencies_query = "FROM tDevisenWaehr ORDER BY dcISOKennz";
inline constexpr const char* log_table_query = "SELECT dcLogTable";
inline constexpr const char* main_query = "SELECT idProtokoll";
inline constexpr const char* valid_from_query = "SELECT ddGueltigAb";
inline constexpr const char* caption_query = "SELECT tSysQuvoColumns.dmDescription";

/// The rows of its main query.
Table sample_rows();

/// The file that a batch run of it writes; without names of events as long as nothing has filled them.
std::string sample_file(bool with_event_names = true);

}  // namespace prot::test
