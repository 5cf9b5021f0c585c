#include "platform/portable/tsql/tsql_tokens.h"

#include <algorithm>

#include "platform/portable/tsql/tsql_lexemes.h"
#include "platform/portable/tsql/tsql_refusal.h"

namespace prot {

namespace {

class Tokenizer {
public:
    explicit Tokenizer(std::string_view text) : text_(text) { tokens_.reserve(text.size() / 4 + 2); }

    std::vector<Token> run() {
        for (skip_blanks(); at_ < text_.size(); skip_blanks()) take();
        if (!open_.empty()) refuse(tokens_[open_.back()].offset, 1, "diese Klammer wird nicht geschlossen");
        tokens_.push_back({Token::Kind::end, Keyword::none, {}, text_.size(), 0});
        return std::move(tokens_);
    }

private:
    std::string_view rest() const { return text_.substr(at_); }
    char look(std::size_t ahead = 0) const { return at_ + ahead < text_.size() ? text_[at_ + ahead] : '\0'; }

    [[noreturn]] void refuse(std::size_t offset, std::size_t size, std::string_view reason) const {
        refuse_statement(text_, offset, size, reason);
    }

    void skip_blanks() {
        while (at_ < text_.size()) {
            if (is_tsql_blank(text_[at_])) {
                ++at_;
            } else if (look() == '-' && look(1) == '-') {
                at_ = std::min(text_.find('\n', at_), text_.size());
            } else if (look() == '/' && look(1) == '*') {
                skip_comment();
            } else {
                return;
            }
        }
    }

    void skip_comment() {
        const std::size_t start = at_;
        int depth = 0;
        do {
            if (at_ >= text_.size()) refuse(start, 2, "dieser Kommentar hat kein Ende");
            const bool opens = look() == '/' && look(1) == '*';
            const bool closes = look() == '*' && look(1) == '/';
            depth += opens ? 1 : closes ? -1 : 0;
            at_ += opens || closes ? 2 : 1;
        } while (depth > 0);
    }

    void take() {
        const char c = look();
        if (c == '\'') return take_quoted(Token::Kind::string, 0, '\'', "dieser Text hat kein Ende");
        if ((c == 'N' || c == 'n') && look(1) == '\'')
            return take_quoted(Token::Kind::string, 1, '\'', "dieser Text hat kein Ende");
        if (c == '[' || c == '"')
            return take_quoted(Token::Kind::quoted_name, 0, c == '[' ? ']' : '"',
                               "dieser Name hat kein Ende");
        if (starts_tsql_name(c)) return take_name();
        if (const std::size_t size = tsql_number_size(rest()); size > 0) return take_number(size);
        take_symbol();
    }

    void add(Token::Kind kind, std::size_t size, Keyword keyword = Keyword::none) {
        tokens_.push_back({kind, keyword, text_.substr(at_, size), at_, 0});
        at_ += size;
    }

    void take_quoted(Token::Kind kind, std::size_t prefix, char delimiter, std::string_view endless) {
        const std::size_t quoted = tsql_quoted_size(rest().substr(prefix), delimiter);
        if (quoted == std::string_view::npos) refuse(at_, text_.size() - at_, endless);
        const std::size_t size = prefix + quoted;
        if (kind == Token::Kind::quoted_name && size == 2) refuse(at_, size, "dieser Name ist leer");
        add(kind, size);
    }

    void take_name() {
        const std::size_t size = tsql_name_size(rest());
        add(Token::Kind::name, size, keyword_of(text_.substr(at_, size)));
    }

    void take_number(std::size_t size) {
        if (continues_tsql_name(look(size))) refuse(at_, size + 1, "diese Zahl ist nicht lesbar");
        add(Token::Kind::number, size);
    }

    void take_symbol() {
        static constexpr std::string_view pairs[] = {"<>", "<=", ">=", "!=", "!<", "!>"};
        static constexpr std::string_view singles = "(),;.*=<>+-/%&|^~";
        if (look() == '@') refuse(at_, 1, "Variablen werden nicht unterstützt");
        for (const std::string_view pair : pairs)
            if (text_.substr(at_, 2) == pair) return add(Token::Kind::symbol, 2);
        if (singles.find(look()) == std::string_view::npos)
            refuse(at_, 1, "dieses Zeichen gehört nicht in eine Anweisung");
        match_parenthesis(look());
        add(Token::Kind::symbol, 1);
    }

    void match_parenthesis(char symbol) {
        if (symbol == '(') open_.push_back(tokens_.size());
        if (symbol != ')') return;
        if (open_.empty()) refuse(at_, 1, "zu dieser Klammer fehlt die öffnende");
        tokens_[open_.back()].closing = tokens_.size();
        open_.pop_back();
    }

    std::string_view text_;
    std::size_t at_ = 0;
    std::vector<Token> tokens_;
    std::vector<std::size_t> open_;  // indexes of "(" whose ")" is still to come
};

std::string undouble(std::string_view text, char delimiter) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        result += text[i];
        if (text[i] == delimiter) ++i;
    }
    return result;
}

}  // namespace

std::vector<Token> tokenize(std::string_view text) {
    const std::size_t zero = text.find('\0');
    if (zero != std::string_view::npos)
        refuse_statement(text.substr(0, zero), zero, 0, "hier steht ein Nullzeichen");
    return Tokenizer(text).run();
}

std::string name_of(const Token& token) {
    if (token.kind == Token::Kind::name) return std::string(token.text);
    return undouble(token.text.substr(1, token.text.size() - 2), token.text.back());
}

std::string string_of(std::string_view literal) {
    const std::size_t start = literal.find('\'') + 1;
    return undouble(literal.substr(start, literal.size() - start - 1), '\'');
}

}  // namespace prot
