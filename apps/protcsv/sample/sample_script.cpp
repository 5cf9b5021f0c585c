#include "apps/protcsv/sample/sample_script.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <fstream>
#include <memory>
#include <vector>

#include "platform/automation/error.h"
#include "platform/automation/text_parts.h"
#include "platform/automation/utf8.h"
#include "platform/portable/files/paths.h"
#include "platform/portable/sqlite/sqlite_problem.h"

namespace prot {

namespace {

constexpr std::size_t rows_of_insert = 100;   // SQL Server takes a thousand
constexpr std::size_t inserts_of_batch = 20;  // one that grows without end takes its memory
constexpr std::int64_t longest_short_text = 255;
constexpr std::int64_t largest_int = 2147483647;

constexpr std::string_view head =
    "\n-- In eine leere Datenbank laden: sqlcmd -S SERVER -d DATENBANK -E -f 65001 -i DATEI\n"
    "SET NOCOUNT ON;\nGO\n";

struct Column {
    std::string name;
    std::string type;  ///< of SQL Server
    bool is_key = false;
    bool is_date = false;
};

/// The sample, as SQLite reads it.
class Source {
public:
    explicit Source(const std::string& path) {
        sqlite3* opened = nullptr;
        const int code = sqlite3_open_v2(path.c_str(), &opened, SQLITE_OPEN_READONLY, nullptr);
        handle_.reset(opened);
        if (code != SQLITE_OK) fail();
    }

    /// Calls `row` with each row's statement.
    template <typename Row>
    void each(const std::string& sql, Row row) const {
        sqlite3_stmt* prepared = nullptr;
        if (sqlite3_prepare_v2(handle_.get(), sql.c_str(), -1, &prepared, nullptr) != SQLITE_OK) fail();
        const std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)> statement(prepared,
                                                                                   sqlite3_finalize);
        int code = SQLITE_ROW;
        while ((code = sqlite3_step(prepared)) == SQLITE_ROW) row(prepared);
        if (code != SQLITE_DONE) fail();
    }

    static std::string text(sqlite3_stmt* row, int column) {
        const auto* const bytes = reinterpret_cast<const char*>(sqlite3_column_text(row, column));
        return bytes == nullptr ? std::string() : std::string(bytes);
    }

private:
    [[noreturn]] void fail() const {
        const int code = sqlite3_extended_errcode(handle_.get());
        throw sqlite_error(code, "Die Beispieldatenbank lässt sich nicht lesen: " +
                                     describe_sqlite_problem(code, sqlite3_errmsg(handle_.get())) + '.');
    }

    std::unique_ptr<sqlite3, decltype(&sqlite3_close)> handle_{nullptr, sqlite3_close};
};

std::string in_brackets(std::string_view name) { return '[' + std::string(name) + ']'; }

/// The declared types of the sample, and what of SQL Server's holds the same. `largest`: the largest number,
/// or length of a text, that stands there.
std::string type_of(std::string_view declared, std::string_view name, std::int64_t largest) {
    if (declared == "DATETIME") return "DATETIME";
    if (declared == "REAL") return "FLOAT";
    if (declared == "INTEGER") return largest > largest_int ? "BIGINT" : "INT";
    const bool is_long = name.starts_with("dm") || largest > longest_short_text;
    return is_long ? "NVARCHAR(MAX)" : "NVARCHAR(255)";
}

std::vector<Column> columns_of(const Source& source, const std::string& table) {
    std::vector<Column> columns;
    source.each("SELECT name, type, pk FROM pragma_table_info('" + table + "')", [&](sqlite3_stmt* row) {
        const std::string name = Source::text(row, 0);
        const std::string declared = Source::text(row, 1);
        const bool is_text = declared == "TEXT";
        std::int64_t largest = 0;
        source.each("SELECT max(" + std::string(is_text ? "length" : "abs") + "(\"" + name + "\")) FROM \"" +
                        table + '"',
                    [&](sqlite3_stmt* found) { largest = sqlite3_column_int64(found, 0); });
        columns.push_back(
            {name, type_of(declared, name, largest), sqlite3_column_int(row, 2) > 0, declared == "DATETIME"});
    });
    return columns;
}

std::string literal(std::string_view text) {
    std::string result = "N";
    append_quoted(result, text, '\'');
    return result;
}

std::string value(sqlite3_stmt* row, int number, const Column& column) {
    switch (sqlite3_column_type(row, number)) {
        case SQLITE_NULL:
            return "NULL";
        case SQLITE_INTEGER:
            return std::to_string(sqlite3_column_int64(row, number));
        case SQLITE_FLOAT: {
            std::array<char, 32> digits{};
            const auto end =
                std::to_chars(digits.begin(), digits.end(), sqlite3_column_double(row, number)).ptr;
            return {digits.data(), end};
        }
        default:
            break;
    }
    std::string text = Source::text(row, number);
    // The form that the server reads alike under every setting of language and date format.
    if (column.is_date && text.size() > 10) text[10] = 'T';
    return literal(text);
}

class Script {
public:
    Script(const std::string& database, const std::string& path)
        : source_(database), path_(path), file_(text_path(path), std::ios::binary) {}

    void write() {
        file_ << utf8_byte_order_mark << sample_script_beginning << head;
        for (const std::string& table : tables()) {
            const std::vector<Column> columns = columns_of(source_, table);
            create(table, columns);
            fill(table, columns);
        }
        source_.each("SELECT sql FROM sqlite_master WHERE type = 'index' AND sql IS NOT NULL ORDER BY rowid",
                     [&](sqlite3_stmt* row) { file_ << Source::text(row, 0) << ";\n"; });
        file_ << "GO\n";
        file_.close();
        if (!file_)
            throw AutomationError(ErrorNumber::file, "Die Datei „" + path_ + "“ lässt sich nicht schreiben.");
    }

private:
    std::vector<std::string> tables() const {
        std::vector<std::string> names;
        source_.each(
            "SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite%' ORDER BY rowid",
            [&](sqlite3_stmt* row) { names.push_back(Source::text(row, 0)); });
        return names;
    }

    void create(const std::string& table, const std::vector<Column>& columns) {
        file_ << "CREATE TABLE " << in_brackets(table) << " (";
        const char* between = "\n    ";
        for (const Column& column : columns) {
            file_ << between << in_brackets(column.name) << ' ' << column.type
                  << (column.is_key ? " NOT NULL PRIMARY KEY" : " NULL");
            between = ",\n    ";
        }
        file_ << "\n);\nGO\n";
    }

    void fill(const std::string& table, const std::vector<Column>& columns) {
        std::size_t rows = 0;
        source_.each("SELECT * FROM \"" + table + "\" ORDER BY rowid", [&](sqlite3_stmt* row) {
            if (rows % rows_of_insert == 0) {
                if (rows > 0) file_ << ";\n" << (rows / rows_of_insert % inserts_of_batch == 0 ? "GO\n" : "");
                file_ << "INSERT INTO " << in_brackets(table) << " VALUES\n";
            } else {
                file_ << ",\n";
            }
            file_ << '(';
            for (std::size_t number = 0; number < columns.size(); ++number)
                file_ << (number > 0 ? ", " : "") << value(row, static_cast<int>(number), columns[number]);
            file_ << ')';
            ++rows;
        });
        if (rows > 0) file_ << ";\nGO\n";
    }

    const Source source_;
    const std::string path_;
    std::ofstream file_;
};

}  // namespace

void write_sample_script(const std::string& database, const std::string& script) {
    Script(database, script).write();
}

bool is_sample_script(const std::string& path) {
    const std::string expected = std::string(utf8_byte_order_mark) + std::string(sample_script_beginning);
    std::ifstream file(text_path(path), std::ios::binary);
    std::string begins(expected.size(), '\0');
    file.read(begins.data(), static_cast<std::streamsize>(begins.size()));
    return begins == expected;
}

}  // namespace prot
