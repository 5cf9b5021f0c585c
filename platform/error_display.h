#pragma once

#include <cstdint>
#include <string_view>

namespace prot {

/// The platform's problem report (class srvZQ.ZQErrorClass in the suite).
class ErrorDisplay {
public:
    virtual ~ErrorDisplay() = default;

    /// Shows an error: its number, its source chain (CR LF separated, innermost first) and its description.
    virtual void ZQ_gShowError(std::int32_t lNummer, std::string_view sQuelle,
                               std::string_view sBeschreibung) = 0;
};

}  // namespace prot
