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

void TsqlWriter::add_number(std::string_view digits, TsqlParameter value) {
    if (binds()) {
        parameters_.push_back(std::move(value));
        return add("?");
    }
    add(digits);
}

void TsqlWriter::add_text(std::string text) {
    if (binds()) {
        parameters_.emplace_back(std::move(text));
        return add("?");
    }
    append_quoted(text_, text, '\'');
    text_ += ' ';
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
    bind_ = false;
    return statement;
}

}  // namespace prot
