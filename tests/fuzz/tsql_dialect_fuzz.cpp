#include <algorithm>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "platform/automation/error.h"
#include "platform/portable/tsql/tsql_dialect.h"
#include "platform/portable/tsql/tsql_refusal.h"
#include "platform/portable/tsql/tsql_tokens.h"
#include "platform/portable/tsql/tsql_translations.h"
#include "tests/fuzz/claim.h"
#include "tests/fuzz/sqlite_parser.h"

/// Input: a batch of T-SQL statements. What the translation accepts SQLite accepts, statement by statement.
namespace prot::fuzz {
namespace {

bool is_symbol(const Token& token, std::string_view symbol) {
    return token.kind == Token::Kind::symbol && token.text == symbol;
}

/// Whether the SELECT or "(" at `index` is an operand of UNION and the like.
bool is_right_operand(const std::vector<Token>& tokens, std::size_t index) {
    if (index > 0 && tokens[index - 1].keyword == Keyword::all) --index;
    if (index == 0) return false;
    const Keyword before = tokens[index - 1].keyword;
    return before == Keyword::union_ || before == Keyword::except || before == Keyword::intersect;
}

/// The statements that `text` holds: those that begin with a word outside of parentheses, and queries that
/// begin with a parenthesis behind a semicolon or at the start.
std::size_t count_statements(std::string_view text) {
    const std::vector<Token> tokens = tokenize(text);
    std::size_t statements = 0;
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        const Token& token = tokens[i];
        if (is_symbol(token, "(")) {
            if (i == 0 || is_symbol(tokens[i - 1], ";")) ++statements;
            i = token.closing;
        } else if (token.keyword == Keyword::delete_ || token.keyword == Keyword::drop) {
            ++statements;
        } else if (token.keyword == Keyword::select && !is_right_operand(tokens, i)) {
            ++statements;
        }
    }
    return statements;
}

/// What stands in a statement of SQLite's outside of its names and texts.
struct Outside {
    std::size_t parameters = 0;
    bool ends_statement = false;
    bool opens_comment = false;
    bool is_closed = true;  ///< every name and every text has an end
};

Outside read_outside(std::string_view text) {
    Outside outside;
    while (!text.empty()) {
        const char c = text.front();
        if (c == '\'' || c == '"') {
            const std::size_t end = text.find(c, 1);
            outside.is_closed = outside.is_closed && end != std::string_view::npos;
            text.remove_prefix(std::min(end, text.size() - 1));
        }
        if (c == '?') ++outside.parameters;
        if (c == ';') outside.ends_statement = true;
        if (text.starts_with("--") || text.starts_with("/*")) outside.opens_comment = true;
        text.remove_prefix(1);
    }
    return outside;
}

SqliteParser& parser() {
    static SqliteParser instance;
    return instance;
}

void check_text(const TsqlStatement& statement) {
    const Outside outside = read_outside(statement.text);
    claim(outside.is_closed && !outside.ends_statement && !outside.opens_comment,
          "a translated statement is one statement", statement.text);
    claim(outside.parameters == statement.parameters.size(), "each parameter has its question mark",
          statement.text);
    claim(statement.parameters.size() <= most_parameters, "long lists stay in the text", statement.text);
    const bool fills = statement.kind == TsqlStatement::Kind::fill_temporary_table;
    claim(fills == statement.temporary_table.starts_with('#'), "INTO and only INTO names a temporary table");
}

void check_preparation(const TsqlStatement& statement) {
    const Preparation preparation = parser().prepare(statement.text);
    claim(preparation.accepted, "SQLite accepts what the translation accepts",
          preparation.error + ": " + statement.text);
    claim(preparation.tail == 0 || preparation.stopped, "SQLite reads a translated statement as one",
          statement.text);
    if (preparation.error.empty())
        claim(preparation.parameters == statement.parameters.size(), "SQLite counts the same parameters",
              statement.text);
}

/// A statement's source means the same when it stands alone.
void check_source(const TsqlStatement& statement) {
    const std::vector<TsqlStatement> alone = translate_tsql(statement.source);
    claim(alone.size() == 1, "the source of a statement is one statement", std::string(statement.source));
    claim(alone[0].text == statement.text && alone[0].kind == statement.kind &&
              alone[0].parameters == statement.parameters &&
              alone[0].temporary_table == statement.temporary_table,
          "a statement does not depend on its neighbours", std::string(statement.source));
}

void check_accepted(std::string_view text, const std::vector<TsqlStatement>& statements) {
    claim(statements.size() == count_statements(text), "as many statements come out as go in");
    const std::less_equal<> before;
    const char* end = text.data();
    for (const TsqlStatement& statement : statements) {
        claim(before(end, statement.source.data()), "sources stand in the text, in order");
        end = statement.source.data() + statement.source.size();
        check_text(statement);
        check_preparation(statement);
        check_source(statement);
    }
    claim(before(end, text.data() + text.size()), "sources stand in the text");
}

std::string shown(const std::string& text) { return text; }
template <class Number>
std::string shown(Number number) {
    return std::to_string(number);
}

/// What SQLite gets of a query, or why it gets nothing.
template <class Translate>
std::string outcome_of(Translate translate) {
    try {
        const TsqlStatement& query = translate();
        std::string result = query.text + '\n' + std::string(query.source);
        for (const TsqlParameter& parameter : query.parameters)
            result += '\n' + std::to_string(parameter.index()) +
                      std::visit([](const auto& value) { return shown(value); }, parameter);
        return result;
    } catch (const AutomationError& error) {
        return error.description();
    }
}

/// Another text of the same shape, most often: other digits, other first letters of texts.
std::string with_other_literals(std::string_view text) {
    std::string result(text);
    for (std::size_t i = 0; i < result.size(); ++i) {
        if (result[i] >= '0' && result[i] <= '9') result[i] = result[i] == '9' ? '0' : char(result[i] + 1);
        if (i > 0 && result[i - 1] == '\'' && result[i] == '%') result[i] = '[';
    }
    return result;
}

void check_memory(std::string_view text) {
    TsqlTranslations translations;
    const std::string other = with_other_literals(text);
    for (const std::string_view sql : {text, std::string_view(other), text})
        claim(outcome_of([&]() -> const TsqlStatement& { return translations.of_query(sql); }) ==
                  outcome_of([&] { return translate_query(sql); }),
              "a query is translated as if none had come before", std::string(sql));
}

void check_refusal(std::string_view text, const AutomationError& error) {
    claim(error.number() == statement_refused && error.source() == "SQLite", "a refusal is told from others");
    const std::string shown = ". Anweisung: " + std::string(text.substr(0, text.find('\0')));
    claim(error.description().ends_with(shown), "a refusal shows the statement", error.description());
}

}  // namespace
}  // namespace prot::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace prot::fuzz;
    const std::string_view text = input_text(data, size);
    check_memory(text);
    std::vector<prot::TsqlStatement> statements;
    try {
        statements = prot::translate_tsql(text);
    } catch (const prot::AutomationError& error) {
        check_refusal(text, error);
        return 0;
    }
    check_accepted(text, statements);
    return 0;
}
