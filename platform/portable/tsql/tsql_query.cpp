#include <algorithm>
#include <string>
#include <utility>

#include "platform/automation/ascii.h"
#include "platform/portable/tsql/tsql_translator.h"

namespace prot {

namespace {

constexpr std::size_t longest_count = 18;  // digits; fits 64 bits

bool is_whole_number(const Token& token) {
    return token.kind == Token::Kind::number && token.text.size() <= longest_count &&
           std::ranges::all_of(token.text, is_ascii_digit);
}

}  // namespace

// However many parentheses stand around the query, one pair is written.
void TsqlTranslator::subquery() {
    reader_.expect("(", "eine Klammer mit SELECT");
    writer_.add("(");
    query(false);
    reader_.expect(")", "die schließende Klammer");
    writer_.add(")");
}

TsqlTranslator::Query TsqlTranslator::query(bool is_statement) {
    const Nesting nesting(*this);
    const std::size_t start = writer_.mark();
    Query written = set_operand(is_statement);
    bool after_union = false;
    while (at_set_operator()) {
        finish_operand(start, written, false);
        set_operator(after_union);
        const std::size_t mark = writer_.mark();
        finish_operand(mark, set_operand(false), true);
        written = Query{true, false, {}};
    }
    if (reader_.at(Keyword::order)) {
        if (!is_statement && written.top.empty())
            reader_.refuse(reader_.look(), "in einer Unterabfrage steht ORDER BY nur zusammen mit TOP");
        if (written.ended) writer_.wrap(start);
        ordering();
        written.ended = true;
    }
    if (!written.top.empty()) {
        limit(std::exchange(written.top, {}));
        written.ended = true;
    }
    return written;
}

bool TsqlTranslator::at_set_operator() const {
    return reader_.at(Keyword::union_) || reader_.at(Keyword::except) || reader_.at(Keyword::intersect);
}

// SQLite joins from left to right; on the server INTERSECT goes first.
void TsqlTranslator::set_operator(bool& after_union) {
    const Token& token = reader_.take();
    if (token.keyword == Keyword::intersect) {
        if (after_union) reader_.refuse(token, "INTERSECT hinter UNION oder EXCEPT braucht Klammern");
        return writer_.add("INTERSECT");
    }
    after_union = true;
    if (token.keyword == Keyword::except) return writer_.add("EXCEPT");
    writer_.add(reader_.accept(Keyword::all) ? "UNION ALL" : "UNION");
}

// SQLite knows no parentheses around an operand of UNION.
TsqlTranslator::Query TsqlTranslator::set_operand(bool may_fill) {
    if (!reader_.at_parenthesised_query()) return selection(may_fill);
    reader_.take();
    const Query inner = query(false);
    reader_.expect(")", "die schließende Klammer");
    return inner;
}

// What must stay together although no parentheses hold it: a limited operand, a compound one on the right.
void TsqlTranslator::finish_operand(std::size_t mark, const Query& operand, bool is_right) {
    if (!operand.top.empty()) limit(operand.top);
    if (operand.ended || !operand.top.empty() || (is_right && operand.compound)) writer_.wrap(mark);
}

TsqlTranslator::Query TsqlTranslator::selection(bool may_fill) {
    reader_.expect(Keyword::select, "SELECT");
    const bool bound = writer_.bind_literals(false);
    writer_.add("SELECT");
    if (reader_.accept(Keyword::distinct))
        writer_.add("DISTINCT");
    else
        reader_.accept(Keyword::all);
    const std::string_view count = top();
    const bool all_named = select_list();
    into(may_fill, all_named);
    if (reader_.accept(Keyword::from)) {
        writer_.add("FROM");
        tables();
    }
    filter();
    grouping();
    writer_.bind_literals(bound);
    return Query{false, false, count};
}

std::string_view TsqlTranslator::top() {
    if (!reader_.accept(Keyword::top)) return {};
    const bool parenthesised = reader_.accept("(");
    if (!is_whole_number(reader_.look())) reader_.refuse_expecting("eine ganze Zahl für TOP");
    const std::string_view count = reader_.take().text;
    if (parenthesised) reader_.expect(")", "die schließende Klammer");
    return count;
}

void TsqlTranslator::limit(std::string_view count) {
    writer_.add("LIMIT");
    writer_.add(count);
}

// True when every column of the result has a name.
bool TsqlTranslator::select_list() {
    bool all_named = select_item();
    while (reader_.accept(",")) {
        writer_.add(",");
        all_named = select_item() && all_named;
    }
    return all_named;
}

bool TsqlTranslator::select_item() {
    if (reader_.accept("*")) {
        writer_.add("*");
        return true;
    }
    if (reader_.at_name() && reader_.at(".", 1) && reader_.at("*", 2)) {
        writer_.add_all_columns(name_of(reader_.take()));
        reader_.take();
        reader_.take();
        return true;
    }
    const bool is_column = reader_.at_name() && !reader_.at("(", 1);
    value();
    return alias() || is_column;
}

void TsqlTranslator::into(bool may_fill, bool all_named) {
    if (!reader_.at(Keyword::into)) return;
    const Token& token = reader_.take();
    if (!may_fill) reader_.refuse(token, "INTO steht nur im ersten SELECT einer Anweisung");
    if (!all_named) reader_.refuse(token, "vor INTO braucht jede Spalte einen Namen");
    temporary_table_ = temporary_name();
}

void TsqlTranslator::filter() {
    if (!reader_.accept(Keyword::where)) return;
    writer_.add("WHERE");
    const bool bound = writer_.bind_literals(true);
    condition();
    writer_.bind_literals(bound);
}

void TsqlTranslator::grouping() {
    if (!reader_.accept(Keyword::group)) return;
    reader_.expect(Keyword::by, "BY");
    writer_.add("GROUP BY");
    column();
    while (reader_.accept(",")) {
        writer_.add(",");
        column();
    }
    if (!reader_.accept(Keyword::having)) return;
    writer_.add("HAVING");
    condition();
}

void TsqlTranslator::ordering() {
    reader_.take();
    reader_.expect(Keyword::by, "BY");
    writer_.add("ORDER BY");
    const bool bound = writer_.bind_literals(false);
    ordering_item();
    while (reader_.accept(",")) {
        writer_.add(",");
        ordering_item();
    }
    writer_.bind_literals(bound);
}

// A whole number is a column's position in both dialects; other constants are no order on the server.
void TsqlTranslator::ordering_item() {
    if (is_whole_number(reader_.look()))
        writer_.add(reader_.take().text);
    else if (reader_.at_name())
        value();
    else
        reader_.refuse_expecting("eine Spalte für ORDER BY");
    if (reader_.accept(Keyword::desc))
        writer_.add("DESC");
    else
        reader_.accept(Keyword::asc);
}

}  // namespace prot
