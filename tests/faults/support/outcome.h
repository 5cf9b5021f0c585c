#pragma once

#include <algorithm>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

/// Reads what a run has left behind.
namespace prot::faults {

inline std::vector<std::string> lines_in(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

/// Whether a problem report tells where: a stamp, and a procedure that the error passed through.
inline bool names_a_place(const std::string& errors) {
    const std::vector<std::string> lines = lines_in(errors);
    const auto source = std::find_if(lines.begin(), lines.end(), [](const std::string& line) {
        constexpr std::string_view label = "Fehlerquelle: ";
        return line.starts_with(label) && line.find("|srvprotqrbcsv|") == label.size() + 12;
    });
    if (source == lines.end() || source + 1 == lines.end()) return false;
    const std::string& procedure = *(source + 1);
    return procedure.starts_with("    ") && procedure.find('.') != std::string::npos;
}

/// A problem report, or, for what fails outside the exporter, a line of the program's own.
inline bool tells_what_failed(const std::string& errors) {
    const std::vector<std::string> lines = lines_in(errors);
    return names_a_place(errors) || std::any_of(lines.begin(), lines.end(), [](const std::string& line) {
               return line.starts_with("protcsv: ") && line.ends_with(".");
           });
}

/// How many lines of `whole` are left out of `part`; -1 when `part` is anything but `whole` with lines left
/// out.
inline std::ptrdiff_t lines_left_out(const std::string& whole, const std::string& part) {
    const std::vector<std::string> all = lines_in(whole), kept = lines_in(part);
    auto at = all.begin();
    for (const std::string& line : kept) {
        at = std::find(at, all.end(), line);
        if (at == all.end()) return -1;
        ++at;
    }
    return static_cast<std::ptrdiff_t>(all.size() - kept.size());
}

/// Whether the notices say that look-ups failed.
inline bool tells_of_failed_lookups(const std::string& errors) {
    return errors.find("Die Datei kann unvollständig sein: ") != std::string::npos;
}

/// How many fields without caption the notices count.
inline std::ptrdiff_t fields_without_caption(const std::string& errors) {
    for (const std::string& line : lines_in(errors))
        if (line.find(" ohne Beschriftung ") != std::string::npos) return std::stol(line);
    return 0;
}

}  // namespace prot::faults
