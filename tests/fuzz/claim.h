#pragma once

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace prot::fuzz {

/// Ends the program, and so reports the input as a finding, unless `holds`. `claim`: the rule that has to
/// hold, as a sentence; `detail`: what was found instead.
inline void claim(bool holds, std::string_view claim, const std::string& detail = {}) {
    if (holds) return;
    std::fprintf(stderr, "does not hold: %.*s\n%s\n", static_cast<int>(claim.size()), claim.data(),
                 detail.c_str());
    std::abort();
}

/// The bytes of one input.
inline std::string_view input_text(const unsigned char* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

/// Takes the first line off `input`, without its LF; all of it when it has only one.
inline std::string_view take_line(std::string_view& input) {
    const std::size_t end = std::min(input.find('\n'), input.size());
    const std::string_view line = input.substr(0, end);
    input.remove_prefix(std::min(end + 1, input.size()));
    return line;
}

}  // namespace prot::fuzz
