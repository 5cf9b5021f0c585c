#pragma once

#include <algorithm>
#include <string_view>

#include "platform/automation/text_parts.h"
#include "platform/automation/utf8.h"
#include "platform/windows/forms/form_layout.h"

namespace prot {

/// A font in which all characters have one width, at a resolution.
class FixedFont : public TextMeasure {
public:
    explicit FixedFont(int dots_per_inch) : dots_per_inch_(dots_per_inch) {}

    int unit_width() const override { return 6 * dots_per_inch_ / 96; }
    int unit_height() const override { return 13 * dots_per_inch_ / 96; }
    int width(std::string_view text) const override {
        return static_cast<int>(decode_utf8(text).size()) * unit_width();
    }
    int height(std::string_view text, int longest) const override {
        int all = 0;
        for (const std::string& line : split(text, '\n')) all += height_of_line(line, longest);
        return all;
    }

private:
    int height_of_line(std::string_view text, int longest) const {
        int lines = 1, used = 0;
        for (std::size_t begin = 0; begin <= text.size();) {
            const std::size_t end = std::min(text.find(' ', begin), text.size());
            const int word = width(text.substr(begin, end - begin));
            if (used > 0 && used + unit_width() + word > longest) {
                ++lines;
                used = 0;
            }
            used += (used > 0 ? unit_width() : 0) + word;
            begin = end + 1;
        }
        return lines * unit_height();
    }

    int dots_per_inch_;
};

}  // namespace prot
