#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/progress_parent.h"

namespace prot {

/// Options of a sample database.
struct SampleOptions {
    std::uint64_t seed = 1;
    /// Rows of the whole log, at most most_sample_rows; without it, the small log that people look at.
    std::optional<std::int64_t> rows = {};
    /// Only changes of this section; the others have their master data, but log nothing. All by default.
    std::optional<std::int32_t> section = {};
};

/// For more there are not seconds enough.
inline constexpr std::int64_t most_sample_rows = 30'000'000;

/// Writes a new SQLite file with master data and a change log in which every kind of change, author and value
/// occurs. `path` is UTF-8 and must not hold a database yet. The same options give the same content, on every
/// system and on every day. Memory does not grow with the rows. Errors: AutomationError with one German line;
/// what was written until then stays and is the caller's to remove. progress: hears of the rows; may be null.
void write_sample_database(const std::string& path, const SampleOptions& options,
                           ProgressParent* progress = nullptr);

/// Whether the file at `path` is a sample database: it bears the mark that write_sample_database leaves.
bool is_sample_database(const std::string& path);

}  // namespace prot
