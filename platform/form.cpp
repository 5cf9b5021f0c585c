#include "platform/form.h"

#include <algorithm>

namespace prot {

void ListField::select_key(std::int64_t key) {
    const auto entry = std::ranges::find(entries, key, &Entry::key);
    if (entry != entries.end()) selected = static_cast<std::size_t>(entry - entries.begin());
}

std::string ListField::selected_text() const { return selected ? entries[*selected].text : std::string(); }

}  // namespace prot
