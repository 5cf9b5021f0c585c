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

/// A file as it is read.
struct KeptFile {
    std::string path;
    std::int64_t bytes = 0;
    std::string sha256;  ///< hexadecimal digits
};

/// What a deletion did.
struct DeletionAccount {
    /// "nothing" (has gone), "trial", "archived" (and nothing has gone yet), "deleted", "memos_deleted" (and
    /// the records not), "unknown" (whether).
    std::string_view state = "nothing";
    std::int64_t records = 0;  ///< that went; until then, that are to go
    std::int64_t memos = 0;
    std::string folder;           ///< of the archive; empty: there is none
    KeptFile database;            ///< in it
    CountedRecords not_exported;  ///< that only a deletion reaches, so that the CSV file says nothing of them
};

/// What one run did, told by those who did it; for what is said at its end, and for its report.
struct RunAccount {
    std::optional<LogRequest> request;  ///< nothing until it is understood
    NoticesReport notices;
    std::int64_t statements = 0;  ///< sent to the database
    std::string file;             ///< path of the finished file, "-" for standard output; empty: none
    std::int64_t bytes = 0;       ///< of the file
    std::optional<Sha256> sum;    ///< of the file's bytes; nothing when nobody wants it
    std::string file_sum;         ///< hexadecimal digits, where the sum has been asked for them
    ReplacedCharacters replaced;
    std::optional<DeletionAccount> deletion;  ///< of a run that deletes
    std::string message;                      ///< of the first error; empty: there was none
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
