#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/automation/date.h"

namespace prot {

/// Turns the logged values of one kind of record into what a reader understands (classes srvKWAusw.… in the
/// suite). It is made for a run and knows the run's database.
class ValueTranslator {
public:
    virtual ~ValueTranslator() = default;

    /// The text for `value` of a column, as of the moment of the change; empty when it has none.
    virtual std::string translate(std::int32_t value, std::string_view column, Date moment) = 0;
};

}  // namespace prot
