#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

#include "core/section_exporter.h"
#include "platform/environment.h"

namespace prot {

/// One log section that has an exporter.
struct Section {
    std::int32_t number;     ///< IDSysQuvoLogSections
    std::string_view name;   ///< what it is called on the command line
    std::string_view title;  ///< what it is called in front of a person
    std::unique_ptr<SectionExporter> (*create)(Environment& environment);
};

/// All sections; an explicit table, made where the sections are known.
using SectionTable = std::span<const Section>;

}  // namespace prot
