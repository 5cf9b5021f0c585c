#include "platform/portable/sqlite/sqlite_first_rows.h"

#include <array>
#include <bit>
#include <cstdint>
#include <utility>
#include <variant>

namespace prot {

namespace {

/// Such texts are compared byte by byte, whatever the collation of the column.
bool is_moment(std::string_view text) {
    return !text.empty() && text.find_first_not_of("0123456789-:. ") == std::string_view::npos &&
           text.back() != ' ';
}

const std::string& bound_of(const TsqlStatement& query) {
    return std::get<std::string>(query.parameters[query.bound]);
}

/// Different values of any type append different texts.
struct KeyPart {
    std::string& key;

    void operator()(std::int64_t number) const { add('i', number); }
    void operator()(double number) const { add('d', number); }
    void operator()(const std::string& text) const {
        key.append("t").append(std::to_string(text.size())).append(":").append(text);
    }

    template <typename Number>
    void add(char type, Number number) const {
        const auto bytes = std::bit_cast<std::array<char, sizeof(Number)>>(number);
        key.append(1, type).append(bytes.data(), bytes.size());
    }
};

}  // namespace

const Value* SqliteFirstRows::find(const TsqlStatement& query) {
    key_ = query.text;
    for (std::size_t i = 0; i < query.parameters.size(); ++i)
        if (i != query.bound) std::visit(KeyPart{key_}, query.parameters[i]);
    const auto known = known_.find(key_);
    if (known == known_.end()) return nullptr;
    const Answer& answer = known->second;
    const std::string& bound = bound_of(query);
    const bool holds = is_moment(bound) && answer.from <= bound && (!answer.until || bound <= *answer.until);
    return holds ? &answer.value : nullptr;
}

void SqliteFirstRows::remember(const TsqlStatement& query, const Value& value, std::string_view place) {
    const auto* const text = std::get_if<std::string>(&value);
    if (is_moment(place) && (!text || text->size() <= longest))
        add({bound_of(query), std::string(place), value});
}

void SqliteFirstRows::remember_none(const TsqlStatement& query) { add({bound_of(query), std::nullopt, {}}); }

void SqliteFirstRows::add(Answer answer) {
    if (!is_moment(answer.from)) return;
    if (known_.size() == capacity) known_.clear();
    known_.insert_or_assign(key_, std::move(answer));
}

}  // namespace prot
