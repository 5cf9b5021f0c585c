#include <algorithm>
#include <iterator>
#include <string>

#include "platform/automation/letter_case.h"
#include "platform/portable/tsql/tsql_literals.h"
#include "platform/portable/tsql/tsql_translator.h"

namespace prot {

namespace {

// The functions that mean the same in both dialects. AVG is not among them: on the server it rounds whole
// numbers.
struct Aggregate {
    std::string_view name;
    bool counts_rows;  // may be called with *
};
constexpr Aggregate aggregates[] = {
    {"COUNT", true},
    {"MAX", false},
    {"MIN", false},
    {"SUM", false},
};

constexpr std::string_view comparisons[] = {"=", "<>", "!=", "<", "<=", ">", ">="};
constexpr std::string_view arithmetic = "+-*/%&|^~";

bool is_comparison(const Token& token) {
    return token.kind == Token::Kind::symbol &&
           std::find(std::begin(comparisons), std::end(comparisons), token.text) != std::end(comparisons);
}

bool is_arithmetic(const Token& token) {
    return token.kind == Token::Kind::symbol && arithmetic.find(token.text[0]) != std::string_view::npos;
}

}  // namespace

void TsqlTranslator::condition() { need_condition(disjunction()); }

void TsqlTranslator::value() {
    const Token& start = reader_.look();
    if (operand() != Meaning::value) reader_.refuse(start, "hier wird ein Wert erwartet, keine Bedingung");
}

void TsqlTranslator::need_condition(Meaning meaning) const {
    if (meaning != Meaning::condition) reader_.refuse_expecting("ein Vergleich");
}

TsqlTranslator::Meaning TsqlTranslator::disjunction() {
    const Meaning meaning = conjunction();
    while (reader_.at(Keyword::or_)) {
        need_condition(meaning);
        writer_.add("OR");
        reader_.take();
        need_condition(conjunction());
    }
    return meaning;
}

TsqlTranslator::Meaning TsqlTranslator::conjunction() {
    const Meaning meaning = negation();
    while (reader_.at(Keyword::and_)) {
        need_condition(meaning);
        writer_.add("AND");
        reader_.take();
        need_condition(negation());
    }
    return meaning;
}

TsqlTranslator::Meaning TsqlTranslator::negation() {
    if (!reader_.accept(Keyword::not_)) return predicate();
    writer_.add("NOT");
    need_condition(predicate());
    return Meaning::condition;
}

TsqlTranslator::Meaning TsqlTranslator::predicate() {
    if (operand() == Meaning::condition) return Meaning::condition;
    if (is_comparison(reader_.look())) {
        writer_.add(reader_.take().text);
        value();
        return Meaning::condition;
    }
    if (reader_.accept(Keyword::is)) {
        writer_.add(reader_.accept(Keyword::not_) ? "IS NOT NULL" : "IS NULL");
        reader_.expect(Keyword::null, "NULL");
        return Meaning::condition;
    }
    const bool negated = reader_.accept(Keyword::not_);
    if (negated) writer_.add("NOT");
    if (reader_.accept(Keyword::in)) {
        in_list();
    } else if (reader_.accept(Keyword::like)) {
        pattern();
    } else if (reader_.accept(Keyword::between)) {
        writer_.add("BETWEEN");
        value();
        reader_.expect(Keyword::and_, "AND");
        writer_.add("AND");
        value();
    } else if (negated) {
        reader_.refuse_expecting("IN, LIKE oder BETWEEN");
    } else {
        return Meaning::value;
    }
    return Meaning::condition;
}

// An empty list, which SQLite would take, is refused because value() finds none.
void TsqlTranslator::in_list() {
    writer_.add("IN");
    if (reader_.at_parenthesised_query()) {
        std::ranges::copy(reader_.repeating_tables(), std::back_inserter(repeating_tables_));
        return subquery();
    }
    reader_.expect("(", "eine Klammer");
    writer_.add("(");
    value();
    while (reader_.accept(",")) {
        writer_.add(",");
        value();
    }
    reader_.expect(")", "die schließende Klammer");
    writer_.add(")");
}

void TsqlTranslator::pattern() {
    const Token& token = reader_.look();
    if (token.kind != Token::Kind::string) reader_.refuse_expecting("ein Muster in Anführungszeichen");
    if (token.text.find('[') != std::string_view::npos)
        reader_.refuse(token, "Zeichenmengen [ ] in LIKE werden nicht unterstützt");
    writer_.add("LIKE");
    text();
}

TsqlTranslator::Meaning TsqlTranslator::operand() {
    const Meaning meaning = bare_operand();
    if (is_arithmetic(reader_.look()))
        reader_.refuse(reader_.look(), "Rechenzeichen werden nicht unterstützt");
    return meaning;
}

TsqlTranslator::Meaning TsqlTranslator::bare_operand() {
    const Token& token = reader_.look();
    if (reader_.at("(")) return parenthesised();
    if (reader_.accept(Keyword::exists)) {
        existence();
        return Meaning::condition;
    }
    if (reader_.at(Keyword::null)) {
        reader_.take();
        writer_.add("NULL");
    } else if (token.kind == Token::Kind::string) {
        text();
    } else if (token.kind == Token::Kind::number) {
        number(false);
    } else if (reader_.accept("-")) {
        number(true);
    } else if (token.kind == Token::Kind::name && reader_.at("(", 1)) {
        aggregate();
    } else {
        column();
    }
    return Meaning::value;
}

TsqlTranslator::Meaning TsqlTranslator::parenthesised() {
    if (reader_.at_parenthesised_query()) {
        subquery();
        return Meaning::value;
    }
    const Nesting nesting(*this);
    reader_.take();
    writer_.add("(");
    const Meaning meaning = disjunction();
    reader_.expect(")", "die schließende Klammer");
    writer_.add(")");
    return meaning;
}

void TsqlTranslator::existence() {
    if (!reader_.at_parenthesised_query()) reader_.refuse_expecting("eine Klammer mit SELECT");
    writer_.add("EXISTS");
    subquery();
}

void TsqlTranslator::text() {
    const Token& token = reader_.take();
    const std::size_t quote = token.text.find('\'');
    writer_.add_text(string_of(token.text), {.offset = token.offset + quote});
}

void TsqlTranslator::number(bool negative) {
    const Token& token = reader_.look();
    if (token.kind != Token::Kind::number) reader_.refuse_expecting("eine Zahl");
    auto value = literal_value(token.text, negative);
    if (!value) reader_.refuse(token, "diese Zahl ist zu groß oder zu klein");
    writer_.add_number((negative ? "-" : "") + std::string(token.text), std::move(*value),
                       {.offset = token.offset, .negative = negative});
    reader_.take();
}

void TsqlTranslator::column() {
    std::string name = reader_.expect_name("ein Wert");
    if (!reader_.accept(".")) {
        writer_.add_name(name);
    } else {
        writer_.add_column(name, reader_.expect_name("ein Spaltenname"));
        if (reader_.at(".")) reader_.refuse(reader_.look(), "Spalten werden ohne Schema genannt");
    }
    if (reader_.at("(")) reader_.refuse(reader_.look(), "diese Funktion wird nicht unterstützt");
}

void TsqlTranslator::aggregate() {
    const Token& token = reader_.look();
    const std::string name = to_upper(token.text);
    const auto* const row = std::find_if(std::begin(aggregates), std::end(aggregates),
                                         [&](const Aggregate& candidate) { return candidate.name == name; });
    if (row == std::end(aggregates)) reader_.refuse(token, "diese Funktion wird nicht unterstützt");
    reader_.take();
    reader_.take();
    writer_.add(row->name);
    writer_.add("(");
    if (row->counts_rows && reader_.accept("*")) {
        writer_.add("*");
    } else {
        if (reader_.accept(Keyword::distinct)) writer_.add("DISTINCT");
        value();
    }
    reader_.expect(")", "die schließende Klammer");
    writer_.add(")");
}

}  // namespace prot
