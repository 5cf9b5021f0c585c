#include <algorithm>

#include "platform/portable/tsql/tsql_translator.h"

namespace prot {

void TsqlTranslator::tables() {
    joined_tables();
    while (reader_.accept(",")) {
        writer_.add(",");
        joined_tables();
    }
}

// Returns the number of joins.
int TsqlTranslator::joined_tables() {
    table_operand(true);
    int joins = 0;
    while (join()) ++joins;
    return joins;
}

bool TsqlTranslator::join() {
    if (reader_.accept(Keyword::cross)) {
        reader_.expect(Keyword::join, "JOIN");
        writer_.add("CROSS JOIN");
        table_operand(false);
        return true;
    }
    if (reader_.accept(Keyword::left)) {
        reader_.accept(Keyword::outer);
        reader_.expect(Keyword::join, "JOIN");
        writer_.add("LEFT JOIN");
    } else if (reader_.accept(Keyword::inner)) {
        reader_.expect(Keyword::join, "JOIN");
        writer_.add("JOIN");
    } else if (reader_.accept(Keyword::join)) {
        writer_.add("JOIN");
    } else {
        return false;
    }
    table_operand(false);
    reader_.expect(Keyword::on, "ON");
    writer_.add("ON");
    condition();
    return true;
}

// Joins go from left to right in both dialects, so the first operand needs no parentheses; without them
// SQLite plans the chain as a whole.
void TsqlTranslator::table_operand(bool first) {
    if (!reader_.at("(")) {
        table_name();
        alias();
        return;
    }
    if (reader_.at_parenthesised_query()) return derived_table();
    const Nesting nesting(*this);
    reader_.take();
    if (!first) writer_.add("(");
    if (joined_tables() == 0) reader_.refuse_expecting("JOIN");
    reader_.expect(")", "die schließende Klammer");
    if (!first) writer_.add(")");
}

void TsqlTranslator::derived_table() {
    subquery();
    if (!alias()) reader_.refuse_expecting("ein Name für die Unterabfrage");
}

void TsqlTranslator::table_name() {
    if (!reader_.at_name()) reader_.refuse_expecting("ein Tabellenname");
    if (reader_.at(".", 1)) reader_.refuse(reader_.look(1), "Tabellen werden ohne Schema genannt");
    if (reader_.at("(", 1))
        reader_.refuse(reader_.look(1), "Tabellenfunktionen und Tabellenhinweise werden nicht unterstützt");
    const bool one_row = std::ranges::find(repeating_tables_, &reader_.look()) != repeating_tables_.end();
    if (one_row) writer_.add("( SELECT 1 FROM");
    if (name_of(reader_.look()).starts_with('#'))
        writer_.add_temporary_table(temporary_name());
    else
        writer_.add_name(name_of(reader_.take()));
    if (one_row) writer_.add("LIMIT 1 )");
}

std::string TsqlTranslator::temporary_name() {
    const Token& token = reader_.look();
    std::string name = reader_.expect_name("der Name einer temporären Tabelle (#…)");
    if (!name.starts_with('#'))
        reader_.refuse(token, "das ist nur mit einer temporären Tabelle (#…) erlaubt");
    if (name.starts_with("##")) reader_.refuse(token, "globale temporäre Tabellen werden nicht unterstützt");
    return name;
}

bool TsqlTranslator::alias() {
    if (reader_.accept(Keyword::as)) {
        writer_.add("AS");
        writer_.add_name(reader_.expect_name("ein Name hinter AS"));
        return true;
    }
    if (!reader_.at_name()) return false;
    writer_.add("AS");
    writer_.add_name(name_of(reader_.take()));
    return true;
}

}  // namespace prot
