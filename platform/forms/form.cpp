#include "platform/forms/form.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "platform/automation/letter_case.h"
#include "platform/automation/utf8.h"

namespace prot {

namespace {
constexpr char mark = '&';
}  // namespace

void Field::choose(std::optional<std::size_t> entry) {
    if (selected == entry) return;
    selected = entry;
    notify(changed);
}

void Field::select_key(std::int64_t key) {
    const auto entry = std::ranges::find(entries, key, &Entry::key);
    if (entry != entries.end()) selected = static_cast<std::size_t>(entry - entries.begin());
}

std::string Field::selected_text() const { return selected ? entries[*selected].text : std::string(); }

const Field& Form::field(std::string_view name) const {
    const auto found = std::ranges::find(fields, name, &Field::name);
    if (found == fields.end()) throw std::out_of_range("form without field " + std::string(name));
    return *found;
}

Field& Form::field(std::string_view name) { return const_cast<Field&>(std::as_const(*this).field(name)); }

std::string without_access_key(std::string_view label) {
    std::string text;
    for (std::size_t i = 0; i < label.size(); ++i) {
        if (label[i] == mark && i + 1 < label.size()) ++i;
        text.push_back(label[i]);
    }
    return text;
}

char32_t access_key(std::string_view label) {
    for (std::size_t i = 0; i + 1 < label.size(); ++i) {
        if (label[i] != mark) continue;
        if (label[i + 1] != mark) return decode_utf8(to_lower(label.substr(i + 1)))[0];
        ++i;
    }
    return 0;
}

}  // namespace prot
