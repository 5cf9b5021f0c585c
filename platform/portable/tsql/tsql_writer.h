#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/portable/tsql/tsql_dialect.h"

namespace prot {

/// Builds the text of one translated statement, tokens parted by one blank, and its parameters.
class TsqlWriter {
public:
    void add(std::string_view token);
    void add_name(std::string_view name);  ///< quoted
    void add_column(std::string_view table, std::string_view column);
    void add_all_columns(std::string_view table);
    void add_temporary_table(std::string_view name);
    void add_number(std::string_view digits, TsqlParameter value,
                    TsqlLiteral literal);  ///< digits: with sign
    void add_text(std::string text, TsqlLiteral literal);

    /// Whether numbers and texts become parameters from now on. Returns what held before.
    bool bind_literals(bool bind);

    /// A place between two tokens, for wrap and text_from.
    std::size_t mark() const { return text_.size(); }

    /// The tokens since then, at least one and none of them a parameter.
    std::string text_from(std::size_t mark) const { return text_.substr(mark, text_.size() - mark - 1); }

    /// Makes the query that begins at `mark` and ends here a derived table, so that it can be an operand of
    /// UNION.
    void wrap(std::size_t mark);

    /// The text so far; the writer is empty afterwards.
    TsqlStatement take();

private:
    void quote(std::string_view name);
    void add_parameter(TsqlParameter value, TsqlLiteral literal);
    bool binds() const { return bind_ && parameters_.size() < most_parameters; }

    std::string text_;
    std::vector<TsqlParameter> parameters_;
    std::vector<TsqlLiteral> literals_;
    bool bind_ = false;
};

}  // namespace prot
