#pragma once

#include <cstdint>

namespace prot {

/// The host's progress object. The log's own names, because scripts and forms of the host offer them by name.
class ProgressParent {
public:
    virtual ~ProgressParent() = default;

    /// The work begins.
    virtual void gRefresh() = 0;

    /// Record lZeile (from 0) of lLetzte records is about to be processed.
    virtual void gSetFortschritt(std::int32_t lZeile, std::int32_t lLetzte) = 0;
};

}  // namespace prot
