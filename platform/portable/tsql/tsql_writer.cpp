#include "platform/portable/tsql/tsql_writer.h"

#include <utility>

#include "platform/automation/text_parts.h"

namespace prot {

void TsqlWriter::add(std::string_view token) {
    text_ += token;
    text_ += ' ';
}

void TsqlWriter::quote(std::string_view name) { append_quoted(text_, name, '"'); }

void TsqlWriter::add_name(std::string_view name) {
    quote(name);
    text_ += ' ';
}

void TsqlWriter::add_column(std::string_view table, std::string_view column) {
    quote(table);
    text_ += '.';
    add_name(column);
}

void TsqlWriter::add_all_columns(std::string_view table) {
    quote(table);
    add(".*");
}

void TsqlWriter::add_temporary_table(std::string_view name) {
    text_ += "temp.";
    add_name(name);
}

void TsqlWriter::add_number(std::string_view digits, TsqlParameter value, TsqlLiteral literal) {
    if (binds()) return add_parameter(std::move(value), literal);
    add(digits);
}

void TsqlWriter::add_text(std::string text, TsqlLiteral literal) {
    if (binds()) return add_parameter(std::move(text), literal);
    append_quoted(text_, text, '\'');
    text_ += ' ';
}

void TsqlWriter::add_parameter(TsqlParameter value, TsqlLiteral literal) {
    parameters_.push_back(std::move(value));
    literals_.push_back(literal);
    add("?");
}

bool TsqlWriter::bind_literals(bool bind) { return std::exchange(bind_, bind); }

void TsqlWriter::wrap(std::size_t mark) {
    text_.insert(mark, "SELECT * FROM ( ");
    add(")");
}

TsqlStatement TsqlWriter::take() {
    if (!text_.empty()) text_.pop_back();
    TsqlStatement statement;
    statement.text = std::exchange(text_, {});
    statement.parameters = std::exchange(parameters_, {});
    statement.literals = std::exchange(literals_, {});
    bind_ = false;
    return statement;
}

}  // namespace prot
