#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

namespace prot::faults {

/// The SQLite file of a small exchange-rate log, as a test makes and looks at it. Every access opens the file
/// anew by the system's own VFS, whatever VFS the program under test is given.
class LogDatabase {
public:
    /// Makes the file with its tables, currencies, rates and captions, and without any log record. encoding:
    /// how the file holds texts, a name that PRAGMA encoding knows.
    explicit LogDatabase(std::filesystem::path file, const std::string& encoding = "UTF-8");

    const std::filesystem::path& file() const { return file_; }

    /// Adds or replaces log record `id`, the change of a rate, logged `id` seconds after midnight. A document
    /// may hold any bytes.
    void put(std::int64_t id, std::string_view document);

    void run(const std::string& sql);
    std::int64_t number(const std::string& sql);
    std::string text(const std::string& sql);

private:
    std::filesystem::path file_;
};

/// A change document of one column.
std::string document_of(std::string_view column, std::string_view old_value, std::string_view new_value);

/// The line of a log record that `put` made, for a changed column with this caption; without its line end.
std::string line_of(std::int64_t id, std::string_view caption, std::string_view old_value,
                    std::string_view new_value);

/// The first two lines of each file, with the byte order mark in front.
std::string file_head();

/// Four records: two rates, two captions, one unreadable document, one field without caption, one change made
/// without a login; three memo rows.
void fill_with_story(LogDatabase& log);

/// The same, and changes of rates up to record 1500: more than a batch, and more than is read ahead.
void fill_with_long_story(LogDatabase& log);

}  // namespace prot::faults
