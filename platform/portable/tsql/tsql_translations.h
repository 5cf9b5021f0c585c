#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/portable/tsql/tsql_dialect.h"
#include "platform/portable/tsql/tsql_literals.h"

namespace prot {

/// Remembers translated queries. One that differs from an earlier one only in literals that are parameters is
/// not taken apart again; the lookups of an export are some twenty shapes, sent hundreds of thousands of
/// times.
class TsqlTranslations {
public:
    /// As translate_query. Valid until the next call; `source` points into `sql`.
    const TsqlStatement& of_query(std::string_view sql);

    static constexpr std::size_t capacity = 64;  ///< shapes; when full, all are forgotten
    std::size_t size() const { return known_.size(); }

private:
    /// What a literal of the shape has to be, in the order of the text.
    struct Place {
        static constexpr std::size_t fixed = static_cast<std::size_t>(-1);

        std::size_t parameter = fixed;  // index
        bool negative = false;
        std::string text;  // of a fixed literal
    };

    struct Translation {
        TsqlStatement statement;
        std::vector<Place> places;
        std::size_t before = 0;  // bytes of the text before and behind the statement's source
        std::size_t behind = 0;
    };

    const TsqlStatement& translate(std::string_view sql);
    std::vector<Place> places(std::string_view sql, const TsqlStatement& statement) const;
    bool fill_in(std::string_view sql, Translation& known) const;

    TsqlShape shape_;  // of the text at hand
    std::unordered_map<std::string, Translation> known_;
    TsqlStatement other_;  // the last query without a shape
};

}  // namespace prot
