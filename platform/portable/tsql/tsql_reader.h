#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/portable/tsql/tsql_cross_product.h"
#include "platform/portable/tsql/tsql_tokens.h"

namespace prot {

/// Walks over the tokens of a T-SQL text. What is not as expected is refused with its place.
class TsqlReader {
public:
    explicit TsqlReader(std::string_view text) : text_(text), tokens_(tokenize(text)) {}

    std::string_view text() const { return text_; }
    const Token& look(std::size_t ahead = 0) const;
    const Token& previous() const { return tokens_[at_ - 1]; }  ///< the token last taken
    const Token& take();

    bool at_end() const { return look().kind == Token::Kind::end; }
    bool at(Keyword keyword) const { return look().keyword == keyword; }
    bool at(std::string_view symbol, std::size_t ahead = 0) const;
    bool at_name(std::size_t ahead = 0) const;  ///< a quoted name, or a plain one that is not reserved
    bool accept(Keyword keyword);
    bool accept(std::string_view symbol);

    /// `what`: what is missing, as a German accusative or nominative without article ("SELECT", "ein
    /// Tabellenname").
    void expect(Keyword keyword, std::string_view what);
    void expect(std::string_view symbol, std::string_view what);
    std::string expect_name(std::string_view what);

    /// Whether the next token opens parentheses around nothing but a query: (SELECT …), ((SELECT …)),
    /// ((SELECT …) UNION …), but not ((SELECT …), 3) or ((SELECT …) = 3).
    bool at_parenthesised_query() const { return is_parenthesised_query(at_); }

    /// Of the parenthesised query that is next; see tsql_cross_product.h.
    std::vector<const Token*> repeating_tables() const { return prot::repeating_tables(tokens_, at_); }

    [[noreturn]] void refuse(const Token& token, std::string_view reason) const;
    [[noreturn]] void refuse_expecting(std::string_view what) const;

private:
    bool is_parenthesised_query(std::size_t index) const;

    std::string_view text_;
    std::vector<Token> tokens_;
    std::size_t at_ = 0;
};

}  // namespace prot
