#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

#include "apps/protcsv/notices_report.h"
#include "apps/protcsv/options/options.h"
#include "platform/portable/csv/csv_encoding.h"
#include "platform/portable/files/sha256.h"

namespace prot {

/// What one run did, told by those who did it; for what is said at its end, and for its report.
struct RunAccount {
    std::optional<LogRequest> request;  ///< nothing until it is understood
    NoticesReport notices;
    std::int64_t statements = 0;  ///< sent to the database
    std::string file;             ///< path of the finished file, "-" for standard output; empty: none
    std::int64_t bytes = 0;       ///< of the file
    std::optional<Sha256> sum;    ///< of the file's bytes; nothing when nobody wants it
    ReplacedCharacters replaced;
    std::string message;  ///< of the first error; empty: there was none
    std::chrono::system_clock::time_point started = std::chrono::system_clock::now();
    std::chrono::steady_clock::time_point watch = std::chrono::steady_clock::now();

    std::chrono::milliseconds duration() const {
        return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() -
                                                                     watch);
    }

    void note_error(std::string_view text) {
        if (message.empty()) message = text;
    }
};

}  // namespace prot
