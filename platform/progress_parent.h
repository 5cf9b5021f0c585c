#pragma once

#include <cstdint>

namespace prot {

/// The host's progress object. The log's own names, because scripts and forms of the host offer them by name.
class ProgressParent {
public:
    virtual ~ProgressParent() = default;

    /// The work begins.
    virtual void gRefresh() = 0;

    /// The record in row lZeile is about to be processed; lLetzte is the number behind that of the last row.
    /// Rows count from the first row of the query's result, which is 0 unless the host numbers its arrays
    /// otherwise.
    virtual void gSetFortschritt(std::int32_t lZeile, std::int32_t lLetzte) = 0;
};

}  // namespace prot
