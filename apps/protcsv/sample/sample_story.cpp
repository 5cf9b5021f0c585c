#include "apps/protcsv/sample/sample_story.h"

#include <charconv>

namespace prot::sample {

std::int32_t number_of(std::string_view text) {
    std::int32_t number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

}  // namespace prot::sample
