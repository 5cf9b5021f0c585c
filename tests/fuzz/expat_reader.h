#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace prot::fuzz {

/// What one Col of a change document holds; nothing where the document has no such part.
struct ExpatColumn {
    std::optional<std::string> name, old_value, new_value;
};

/// A document as expat reads it, as UTF-8 whatever its declaration says.
struct ExpatReading {
    bool well_formed = false;          ///< false also for a document with a document type
    bool invalid_token = false;        ///< the error is a character that may not stand at `error_at`
    std::size_t error_at = 0;          ///< bytes from the start of the document
    std::string version = "1.0";       ///< of the XML declaration
    std::vector<ExpatColumn> columns;  ///< the Col children of the first element Cols
};

ExpatReading read_with_expat(std::string_view document);

}  // namespace prot::fuzz
