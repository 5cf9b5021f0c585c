#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>

namespace prot {

/// Line break of source chains, messages and message boxes.
inline constexpr std::string_view line_break = "\r\n";

/// Automation error numbers: 0x800A0000 plus the run-time error's number. Source: OLE Automation,
/// FACILITY_CONTROL.
enum class ErrorNumber : std::uint32_t {
    overflow = 0x800A0006,
    out_of_memory = 0x800A0007,
    index_out_of_range = 0x800A0009,
    type_mismatch = 0x800A000D,
    internal = 0x800A0033,
    file = 0x800A0039,
};

/// What a person reads when memory ran out.
inline constexpr std::string_view out_of_memory_text = "Der Arbeitsspeicher reicht nicht aus.";

/// An error on its way to the caller.
class AutomationError : public std::exception {
public:
    /// source: the failing component's own text, or empty when it is this component itself.
    AutomationError(std::int32_t number, std::string source, std::string description)
        : number_(number), source_(std::move(source)), description_(std::move(description)) {}
    AutomationError(ErrorNumber number, std::string description)
        : AutomationError(static_cast<std::int32_t>(number), std::string(), std::move(description)) {}

    std::int32_t number() const { return number_; }                  ///< HRESULT, negative for errors
    const std::string& source() const { return source_; }            ///< CR LF separated, innermost first
    const std::string& description() const { return description_; }  ///< for a person
    const char* what() const noexcept override { return description_.c_str(); }

    void set_source(std::string source) { source_ = std::move(source); }
    void append_to_source(std::string_view text) { source_ += text; }
    void append_to_description(std::string_view text) { description_ += text; }

private:
    std::int32_t number_;
    std::string source_;
    std::string description_;
};

}  // namespace prot
