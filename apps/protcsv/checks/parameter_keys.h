#pragma once

#include <span>
#include <string>
#include <string_view>

/// The keys of parameter texts: those that something here reads, and those of the suite's own jobs.
namespace prot {

enum class KeyKind {
    flag,       ///< autostart
    host,       ///< `run` reads it; other commands have an option for it
    selection,  ///< some section's
    range_end,  ///< the end of a range of which only the beginning is read
    suite       ///< of the suite's own jobs; selects nothing
};

struct KeyRow {
    std::string_view name;  ///< without its colon
    KeyKind kind;
    std::string_view other{};  ///< host: the option; range_end: the key of the range's beginning
};

std::span<const KeyRow> parameter_keys();

/// The row of the key that an item begins with, or null.
const KeyRow* find_key(std::string_view item);

/// The key that an item begins with as it is written: what stands before the colon, or without a colon before
/// an equals sign or a blank. Never a part of the value.
std::string_view key_of(std::string_view item);

/// A section's key as a person writes it, without its colon.
std::string_view key_name(std::string_view key);

/// Whether `item` begins where a slash of the whole text `parameters` does, or the text itself. In a text
/// that is searched for keys, one may be found within another item; what is wrong there is said of that one.
bool begins_part(std::string_view item, std::string_view parameters);

/// The key that holds a password: its value is never shown.
inline constexpr std::string_view password_key = "pwd";

/// Whether `item` may be the rest of a password that a slash has cut: no known key stands between pwd and it.
/// parameters: the whole text.
bool is_rest_of_password(std::string_view item, std::string_view parameters);

}  // namespace prot
