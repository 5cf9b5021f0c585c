#pragma once

#include <string>

#include "apps/protcsv/options/usage_error.h"

namespace prot {

/// What `parse` refuses its text with; empty when it accepts it.
template <typename Parse>
std::string refusal_of(Parse parse) {
    try {
        parse();
    } catch (const UsageError& error) {
        return error.what();
    }
    return {};
}

}  // namespace prot
