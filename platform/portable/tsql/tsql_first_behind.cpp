#include "platform/portable/tsql/tsql_first_behind.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "platform/automation/letter_case.h"
#include "platform/portable/tsql/tsql_reader.h"

namespace prot {

namespace {

bool compares(const Token& token) {
    constexpr std::string_view comparisons[] = {"=", "<>", "!=", "<", "<=", ">", ">="};
    return std::ranges::find(comparisons, token.text) != std::end(comparisons);
}

/// Reads a query as far as it is of the form; each step is false where it is not.
class FormOfQuery {
public:
    explicit FormOfQuery(std::string_view text) : reader_(text) {}

    std::optional<TsqlFirstBehind> read() {
        if (!head() || !conditions() || !ordering()) return std::nullopt;
        std::string with_place(reader_.text());
        with_place.insert(list_end_, ", " + std::string(place_.text));
        return TsqlFirstBehind{std::move(with_place), bound_};
    }

private:
    bool head() {
        if (!reader_.accept(Keyword::select) || !reader_.accept(Keyword::top)) return false;
        if (reader_.take().text != "1" || !name()) return false;
        list_end_ = name_.offset + name_.text.size();
        return reader_.accept(Keyword::from) && name() && reader_.accept(Keyword::where);
    }

    bool conditions() {
        do {
            if (!condition()) return false;
        } while (reader_.accept(Keyword::and_));
        return true;
    }

    bool condition() {
        if (!name()) return false;
        std::string column = last_name();
        const Token& comparison = reader_.take();
        const Token& literal = reader_.take();
        const bool is_text = literal.kind == Token::Kind::string;
        if (comparison.text == ">=" && is_text && bounded_.empty()) {
            bounded_ = std::move(column);
            bound_ = literal.offset + literal.text.find('\'');
            return true;
        }
        others_.push_back(std::move(column));
        if (comparison.keyword == Keyword::like) return is_text;
        return compares(comparison) && (is_text || literal.kind == Token::Kind::number);
    }

    bool ordering() {
        if (!reader_.accept(Keyword::order) || !reader_.accept(Keyword::by) || !name()) return false;
        place_ = name_;
        reader_.accept(Keyword::asc);
        return reader_.at_end() && last_name() == bounded_ && !std::ranges::count(others_, bounded_);
    }

    bool name() {
        if (!reader_.at_name()) return false;
        name_ = reader_.take();
        return true;
    }

    std::string last_name() const { return to_lower(name_of(name_)); }

    TsqlReader reader_;
    Token name_;                       // the last one that was read
    std::size_t list_end_ = 0;         // behind the column that is selected
    std::size_t bound_ = 0;            // see TsqlFirstBehind
    std::string bounded_;              // the column of the bound, in small letters
    std::vector<std::string> others_;  // the columns of the other conditions, likewise
    Token place_;                      // the column of the order
};

}  // namespace

std::optional<TsqlFirstBehind> find_first_behind(std::string_view text) { return FormOfQuery(text).read(); }

}  // namespace prot
