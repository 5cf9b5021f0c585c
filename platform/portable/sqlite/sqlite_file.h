#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "platform/row_set.h"

struct sqlite3;
struct sqlite3_stmt;

namespace prot {

/// A SQLite file that is being written. Every failure is an AutomationError, number 0x80040000 + SQLite's
/// extended result code, with the path in its one German line.
class SqliteFile {
public:
    /// Creates the file when it does not exist. what: "Die Beispieldatenbank", how an error calls it.
    SqliteFile(const std::string& path, std::string_view what);

    /// Runs statements that return nothing of interest, separated by semicolons.
    void execute(const std::string& sql);

    std::int64_t last_key() const;  ///< key of the row that was inserted last

    /// Closes the file; a failure that shows only now is raised.
    void close();

private:
    friend class SqliteInsert;
    [[noreturn]] void fail() const;

    struct Closer {
        void operator()(sqlite3* connection) const noexcept;
    };
    std::string path_, what_;
    std::unique_ptr<sqlite3, Closer> connection_;
};

/// INSERT of a whole row into a table with that many columns.
std::string insert_into(std::string_view table, std::size_t columns);

/// A prepared INSERT. Must not outlive its file.
class SqliteInsert {
public:
    SqliteInsert(SqliteFile& file, std::string_view sql);

    /// Inserts one row; values in the order of the statement's parameters. Texts are UTF-8, an empty optional
    /// is NULL.
    template <class... Values>
    void row(const Values&... values) {
        int index = 0;
        (bind(++index, values), ...);
        step();
    }

    /// The same for values that are all texts; what the columns' types take for a number becomes one.
    void row_of_texts(std::span<const std::optional<std::string>> values);

    /// A row of a result that holds no dates.
    void row_of_cells(const RowSet& rows, std::size_t row);

private:
    void bind(int index, std::nullopt_t);
    void bind(int index, std::string_view text);
    void bind(int index, const Cell& cell);
    void bind(int index, double number);
    void bind_integer(int index, std::int64_t number);
    template <std::integral Number>
    void bind(int index, Number number) {
        bind_integer(index, static_cast<std::int64_t>(number));
    }
    template <class T>
    void bind(int index, const std::optional<T>& value) {
        if (value) {
            bind(index, *value);
        } else {
            bind(index, std::nullopt);
        }
    }
    void step();

    struct Finalizer {
        void operator()(sqlite3_stmt* statement) const noexcept;
    };
    SqliteFile& file_;
    std::unique_ptr<sqlite3_stmt, Finalizer> statement_;
};

}  // namespace prot
