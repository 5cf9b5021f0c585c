#include "platform/portable/tsql/tsql_reader.h"

#include <algorithm>

#include "platform/portable/tsql/tsql_refusal.h"

namespace prot {

namespace {

bool is_symbol(const Token& token, std::string_view symbol) {
    return token.kind == Token::Kind::symbol && token.text == symbol;
}

bool continues_query(Keyword keyword) {
    return keyword == Keyword::union_ || keyword == Keyword::except || keyword == Keyword::intersect ||
           keyword == Keyword::order;
}

}  // namespace

const Token& TsqlReader::look(std::size_t ahead) const {
    return tokens_[std::min(at_ + ahead, tokens_.size() - 1)];
}

const Token& TsqlReader::take() {
    const Token& token = look();
    if (token.kind != Token::Kind::end) ++at_;
    return token;
}

bool TsqlReader::at(std::string_view symbol, std::size_t ahead) const {
    return is_symbol(look(ahead), symbol);
}

bool TsqlReader::at_name(std::size_t ahead) const {
    const Token& token = look(ahead);
    return token.kind == Token::Kind::quoted_name ||
           (token.kind == Token::Kind::name && token.keyword == Keyword::none);
}

bool TsqlReader::accept(Keyword keyword) {
    if (!at(keyword)) return false;
    take();
    return true;
}

bool TsqlReader::accept(std::string_view symbol) {
    if (!at(symbol)) return false;
    take();
    return true;
}

void TsqlReader::expect(Keyword keyword, std::string_view what) {
    if (!accept(keyword)) refuse_expecting(what);
}

void TsqlReader::expect(std::string_view symbol, std::string_view what) {
    if (!accept(symbol)) refuse_expecting(what);
}

std::string TsqlReader::expect_name(std::string_view what) {
    if (!at_name()) refuse_expecting(what);
    return name_of(take());
}

bool TsqlReader::is_parenthesised_query(std::size_t index) const {
    for (std::size_t depth = index; is_symbol(tokens_[depth], "("); ++depth) {
        const Token& inside = tokens_[depth + 1];
        if (inside.keyword == Keyword::select) return true;
        if (!is_symbol(inside, "(")) return false;
        const Token& behind = tokens_[inside.closing + 1];
        if (!is_symbol(behind, ")") && !continues_query(behind.keyword)) return false;
    }
    return false;
}

void TsqlReader::refuse(const Token& token, std::string_view reason) const {
    refuse_statement(text_, token.offset, token.text.size(), reason);
}

void TsqlReader::refuse_expecting(std::string_view what) const {
    refuse(look(), "hier fehlt " + std::string(what));
}

}  // namespace prot
