#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "core/run.h"
#include "platform/automation/date.h"
#include "platform/value_translator.h"

namespace prot::report_frameworks {

/// What a reader understands by the values of a record, told by the suite's translation objects: one for each
/// kind of record, created with its first value and released with this object, which is with the run.
class FrameworkValues {
public:
    explicit FrameworkValues(Run& run) : run_(run) {}

    /// The display text of a value at the date of the change; empty for a table without translation object,
    /// and where the object cannot be created, which is tried once.
    std::string msTranslateValue(std::string_view sTabelle, std::string_view sSpalte, std::int32_t lWert,
                                 Date dtDatum);

private:
    struct Known {
        bool tried = false;
        std::unique_ptr<ValueTranslator> translator;
    };

    Run& run_;
    std::array<Known, 6> known_;
};

}  // namespace prot::report_frameworks
