#include "platform/portable/tsql/tsql_translations.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "platform/portable/tsql/tsql_first_behind.h"

namespace prot {

namespace {

std::size_t parameter_at(const TsqlStatement& statement, std::size_t offset) {
    const auto literal = std::ranges::find(statement.literals, offset, &TsqlLiteral::offset);
    return static_cast<std::size_t>(literal - statement.literals.begin());
}

TsqlStatement with_place(std::string_view sql) {
    TsqlStatement statement = translate_query(sql);
    if (const std::optional<TsqlFirstBehind> query = find_first_behind(sql)) {
        statement.text_with_place = translate_query(query->with_place).text;
        statement.bound = parameter_at(statement, query->bound);
    }
    return statement;
}

}  // namespace

const TsqlStatement& TsqlTranslations::of_query(std::string_view sql) {
    if (!take_shape(sql, shape_)) return other_ = translate_query(sql);
    const auto known = known_.find(shape_.text);
    if (known != known_.end() && fill_in(sql, known->second)) return known->second.statement;
    return translate(sql);
}

const TsqlStatement& TsqlTranslations::translate(std::string_view sql) {
    Translation fresh;
    fresh.statement = with_place(sql);
    const std::string_view source = fresh.statement.source;
    fresh.places = places(sql, fresh.statement);
    fresh.before = static_cast<std::size_t>(source.data() - sql.data());
    fresh.behind = sql.size() - fresh.before - source.size();
    if (known_.size() == capacity) known_.clear();
    return known_.insert_or_assign(shape_.text, std::move(fresh)).first->second.statement;
}

std::vector<TsqlTranslations::Place> TsqlTranslations::places(std::string_view sql,
                                                              const TsqlStatement& statement) const {
    std::vector<Place> result;
    for (const std::string_view literal : shape_.literals) {
        const auto offset = static_cast<std::size_t>(literal.data() - sql.data());
        const std::size_t parameter = parameter_at(statement, offset);
        Place& place = result.emplace_back();
        if (parameter == statement.literals.size()) {
            place.text = literal;
        } else {
            place.parameter = parameter;
            place.negative = statement.literals[parameter].negative;
        }
    }
    return result;
}

/// False when one that is no parameter (of TOP, in a name) is another one, or one that a translation may
/// refuse: a number without a value, a text that would be a pattern with a set of characters.
bool TsqlTranslations::fill_in(std::string_view sql, Translation& known) const {
    for (std::size_t i = 0; i < known.places.size(); ++i) {
        const Place& place = known.places[i];
        const std::string_view literal = shape_.literals[i];
        if (place.parameter == Place::fixed) {
            if (literal != place.text) return false;
            continue;
        }
        if (literal.find('[') != std::string_view::npos) return false;
        std::optional<TsqlParameter> value = literal_value(literal, place.negative);
        if (!value) return false;
        known.statement.parameters[place.parameter] = std::move(*value);
    }
    known.statement.source = sql.substr(known.before, sql.size() - known.before - known.behind);
    return true;
}

}  // namespace prot
