#pragma once

#include <string>
#include <string_view>

#include "core/Prot0000UtilitiesBAS.h"
#include "platform/automation/text_parts.h"

namespace prot {

/// One item of a parameter text, without its slash.
class BatchItem {
public:
    /// environment: shows what goes wrong when the value is read.
    BatchItem(std::string_view text, Environment& environment) : text_(text), environment_(environment) {}

    /// As it stands in the text, without blanks around it.
    std::string text() const { return std::string(trim_blanks(text_)); }
    /// Whether the item begins with `key`, whatever its letter case.
    bool is(std::string_view key) const { return pbCommandVorhanden(text_, key); }
    /// What stands behind the colon; empty without one.
    std::string value() const { return psComWert("/" + std::string(text_), environment_); }

private:
    std::string_view text_;
    Environment& environment_;
};

}  // namespace prot
