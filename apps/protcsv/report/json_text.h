#pragma once

#include <string>

#include <nlohmann/json.hpp>

namespace prot {

/// An object as JSON text, its members in the order they were set; bytes that are not UTF-8 become U+FFFD.
/// indent: of each level, on lines of their own; -1 for one line.
inline std::string json_text(const nlohmann::ordered_json& object, int indent = -1) {
    return object.dump(indent, ' ', false, nlohmann::ordered_json::error_handler_t::replace);
}

}  // namespace prot
