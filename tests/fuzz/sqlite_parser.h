#pragma once

#include <cstddef>
#include <string>

struct sqlite3;

namespace prot::fuzz {

/// What SQLite makes of a statement.
struct Preparation {
    bool accepted = false;       ///< prepared, or refused not for its grammar: `error` says why
    bool stopped = false;        ///< a limit of SQLite's ended the reading
    std::string error;           ///< empty when prepared
    std::size_t tail = 0;        ///< bytes that are not read as part of the statement
    std::size_t parameters = 0;  ///< question marks; 0 when not prepared
};

/// SQLite's parser over an empty database, set as the program sets its connections. Tables are made as
/// statements ask for them, with the columns a, b, c, d and x, so that names are resolved too.
class SqliteParser {
public:
    SqliteParser();
    ~SqliteParser();
    SqliteParser(const SqliteParser&) = delete;
    SqliteParser& operator=(const SqliteParser&) = delete;

    Preparation prepare(const std::string& statement);

private:
    Preparation prepare_once(const std::string& statement);
    bool make_missing_table(const std::string& error);
    void open();

    sqlite3* handle_ = nullptr;
    std::size_t tables_ = 0;
};

}  // namespace prot::fuzz
