#include "platform/portable/tsql/tsql_cross_product.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "platform/automation/ascii.h"

namespace prot {

namespace {

// Words besides SELECT, FROM and WHERE that leave it to the rows' values, never to their number, what a
// SELECT gives.
constexpr Keyword conditions[] = {Keyword::and_, Keyword::between, Keyword::exists, Keyword::in, Keyword::is,
                                  Keyword::like, Keyword::not_,    Keyword::null,   Keyword::or_};

constexpr std::string_view symbols[] = {"(", ")", ",", "=", "<>", "!=", "<", "<=", ">", ">=", "-"};

// Deeper ones are refused elsewhere.
constexpr std::size_t deepest = 100;

bool is_symbol(const Token& token, std::string_view symbol) {
    return token.kind == Token::Kind::symbol && token.text == symbol;
}

bool is_name(const Token& token) {
    return token.kind == Token::Kind::quoted_name ||
           (token.kind == Token::Kind::name && token.keyword == Keyword::none);
}

char folded(char byte) { return is_ascii_letter(byte) ? static_cast<char>(byte | 0x20) : byte; }

// As SQLite compares names.
bool same_name(const Token& a, const Token& b) {
    return std::ranges::equal(name_of(a), name_of(b), {}, folded, folded);
}

/// One SELECT of the subquery.
struct Selection {
    std::size_t end = 0;  // index of the ")" behind it
    bool in_from = false;
    std::vector<const Token*> tables = {};
    std::vector<const Token*> column_tables = {};  // in front of the dot

    bool lists(const Token& table) const {
        return std::ranges::any_of(tables, [&](const Token* listed) { return same_name(*listed, table); });
    }
    bool uses(const Token& table) const {
        return std::ranges::any_of(column_tables, [&](const Token* used) { return same_name(*used, table); });
    }
};

class SubqueryReader {
public:
    SubqueryReader(const std::vector<Token>& tokens, std::size_t open) : tokens_(tokens), at_(open) {}

    std::vector<const Token*> repeating_tables() {
        for (const std::size_t end = tokens_[at_].closing; at_ <= end; ++at_)
            if (!step()) return {};
        if (outermost_.tables.size() < 2) return {};
        std::erase_if(outermost_.tables, [&](const Token* table) { return outermost_.uses(*table); });
        return outermost_.tables;
    }

private:
    // Takes a token, or a column's three; false when it is not understood.
    bool step() {
        const Token& token = tokens_[at_];
        if (token.keyword == Keyword::select) return begin();
        if (open_.empty()) return is_symbol(token, "(") || is_symbol(token, ")");
        if (token.keyword == Keyword::from || token.keyword == Keyword::where) {
            open_.back().in_from = token.keyword == Keyword::from;
            return true;
        }
        if (open_.back().in_from) return table() || end();
        if (is_name(token)) return column();
        return end() || is_harmless(token);
    }

    bool begin() {
        if (!is_symbol(tokens_[at_ - 1], "(") || open_.size() == deepest) return false;
        open_.push_back({tokens_[at_ - 1].closing});
        return true;
    }

    // Columns of tables that a SELECT does not list belong to one around it.
    bool end() {
        if (at_ != open_.back().end) return false;
        const Selection ended = std::move(open_.back());
        open_.pop_back();
        if (open_.empty()) {
            outermost_ = ended;
            return true;
        }
        std::ranges::copy_if(ended.column_tables, std::back_inserter(open_.back().column_tables),
                             [&](const Token* table) { return !ended.lists(*table); });
        return true;
    }

    // A name with nothing but FROM or a comma in front of it, or the comma.
    bool table() {
        const Token& token = tokens_[at_];
        if (is_symbol(token, ",")) return true;
        const Token& before = tokens_[at_ - 1];
        if (!is_name(token) || (before.keyword != Keyword::from && !is_symbol(before, ","))) return false;
        if (open_.back().lists(token)) return false;
        open_.back().tables.push_back(&token);
        return true;
    }

    bool column() {
        if (!is_symbol(tokens_[at_ + 1], ".") || !is_name(tokens_[at_ + 2])) return false;
        open_.back().column_tables.push_back(&tokens_[at_]);
        at_ += 2;
        return true;
    }

    static bool is_harmless(const Token& token) {
        if (token.kind == Token::Kind::string || token.kind == Token::Kind::number) return true;
        if (token.kind == Token::Kind::symbol)
            return std::ranges::find(symbols, token.text) != std::end(symbols);
        return std::ranges::find(conditions, token.keyword) != std::end(conditions);
    }

    const std::vector<Token>& tokens_;
    std::size_t at_;
    std::vector<Selection> open_;  // the innermost last
    Selection outermost_;
};

}  // namespace

std::vector<const Token*> repeating_tables(const std::vector<Token>& tokens, std::size_t open) {
    return SubqueryReader(tokens, open).repeating_tables();
}

}  // namespace prot
