#pragma once

#include <stdexcept>

namespace prot {

/// What the person asked for cannot be understood. what(): one German line for the person, without the
/// program's name.
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

}  // namespace prot
