#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/automation/value.h"
#include "platform/portable/tsql/tsql_dialect.h"

namespace prot {

/// Answers of queries for the first row at or behind a bound (see tsql_first_behind.h), as long as the
/// database does not change: the next bound often has the same one. Bounded: the answers of `capacity`
/// queries, none longer than `longest`; when it is full, all are forgotten.
class SqliteFirstRows {
public:
    static constexpr std::size_t capacity = 1024;
    static constexpr std::size_t longest = 4000;  ///< bytes of a text

    /// The answer to `query`, where that to an earlier bound tells it; else null. Valid until the next call.
    const Value* find(const TsqlStatement& query);

    /// What the query just asked for was answered with. place: the text of the bounded column in that row.
    void remember(const TsqlStatement& query, const Value& answer, std::string_view place);
    void remember_none(const TsqlStatement& query);

    void clear() { known_.clear(); }

private:
    struct Answer {
        std::string from;                  // this bound
        std::optional<std::string> until;  // and all up to this; none: all later ones
        Value value;
    };

    void add(Answer answer);

    std::string key_;  // of the query just asked for
    std::unordered_map<std::string, Answer> known_;
};

}  // namespace prot
