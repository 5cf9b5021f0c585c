#include "platform/portable/tsql/tsql_dialect.h"

#include <utility>

#include "platform/portable/tsql/tsql_refusal.h"
#include "platform/portable/tsql/tsql_translator.h"

namespace prot {

std::vector<TsqlStatement> translate_tsql(std::string_view text) { return TsqlTranslator(text).batch(); }

std::vector<TsqlStatement> TsqlTranslator::batch() {
    std::vector<TsqlStatement> statements;
    while (reader_.accept(";")) {
    }
    do {
        statements.push_back(statement());
        while (reader_.accept(";")) {
        }
    } while (!reader_.at_end());
    return statements;
}

TsqlStatement translate_query(std::string_view text) {
    std::vector<TsqlStatement> statements = translate_tsql(text);
    for (const TsqlStatement& statement : statements)
        if (statements.size() > 1 || statement.kind != TsqlStatement::Kind::query) {
            const auto offset = static_cast<std::size_t>(statement.source.data() - text.data());
            refuse_statement(text, offset, statement.source.size(),
                             "eine Abfrage ist genau ein SELECT ohne INTO");
        }
    return std::move(statements.front());
}

TsqlStatement TsqlTranslator::statement() {
    const std::size_t start = reader_.look().offset;
    TsqlStatement::Kind kind = TsqlStatement::Kind::query;
    if (reader_.at(Keyword::select) || reader_.at_parenthesised_query()) {
        query(true);
        if (!temporary_table_.empty()) kind = TsqlStatement::Kind::fill_temporary_table;
    } else if (reader_.accept(Keyword::delete_)) {
        removal();
        kind = TsqlStatement::Kind::command;
    } else if (reader_.accept(Keyword::drop)) {
        drop();
        kind = TsqlStatement::Kind::command;
    } else {
        reader_.refuse_expecting("SELECT, DELETE oder DROP TABLE");
    }
    if (!reader_.at_end() && !reader_.at(";") && !reader_.at(Keyword::select) &&
        !reader_.at(Keyword::delete_) && !reader_.at(Keyword::drop))
        reader_.refuse(reader_.look(), "das wird hier nicht erwartet");

    TsqlStatement result = writer_.take();
    const Token& last = reader_.previous();
    result.kind = kind;
    result.temporary_table = std::exchange(temporary_table_, {});
    result.source = reader_.text().substr(start, last.offset + last.text.size() - start);
    return result;
}

/// The rows are chosen before the first of them is deleted, as on the server. SQLite deletes while it
/// searches, so that a condition about the table's other rows would miss those that are gone by then.
void TsqlTranslator::removal() {
    reader_.accept(Keyword::from);
    writer_.add("DELETE FROM");
    const std::size_t mark = writer_.mark();
    table_name();
    if (!reader_.at(Keyword::where)) return;
    const std::string table = writer_.text_from(mark);
    writer_.add("WHERE rowid IN ( SELECT rowid FROM");
    writer_.add(table);
    filter();
    writer_.add(")");
}

void TsqlTranslator::drop() {
    reader_.expect(Keyword::table, "TABLE");
    writer_.add("DROP TABLE");
    if (reader_.accept(Keyword::if_)) {
        reader_.expect(Keyword::exists, "EXISTS");
        writer_.add("IF EXISTS");
    }
    writer_.add_temporary_table(temporary_name());
}

}  // namespace prot
