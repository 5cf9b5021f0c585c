#include "apps/protcsv/deletion/archive_file.h"

#include <algorithm>
#include <array>
#include <bit>
#include <utility>

#include "platform/automation/text_parts.h"
#include "platform/portable/sqlite/sqlite_database.h"

namespace prot {

namespace {

constexpr std::string_view kind = "Das Archiv";

// What the first letters of a column's name say of it. Only so much is declared that the file answers the
// statements that the database answers: dates are known by it, and texts compare without letter case. Values
// stay what they are.
struct ColumnType {
    std::string_view prefix, type;
};
constexpr ColumnType column_types[] = {
    {"dd", "DATETIME"}, {"dc", "COLLATE NOCASE"}, {"dm", "COLLATE NOCASE"}};

std::string sql_name(std::string_view name) {
    std::string text;
    append_quoted(text, name, '"');
    return text;
}

std::string column_definition(std::string_view name, bool is_id) {
    std::string definition = sql_name(name);
    if (is_id) return definition + " INTEGER PRIMARY KEY";
    for (const ColumnType& row : column_types)
        if (name.starts_with(row.prefix)) return definition + ' ' + std::string(row.type);
    return definition;
}

std::string table_definition(const ArchivedTable& table, const std::vector<std::string>& columns) {
    std::string sql = "CREATE TABLE " + sql_name(table.name) + " (";
    for (std::size_t i = 0; i < columns.size(); ++i)
        sql += (i > 0 ? ", " : "") + column_definition(columns[i], columns[i] == table.id);
    sql += ")";
    if (!table.search.empty())
        sql += "; CREATE INDEX " + sql_name("i" + table.name) + " ON " + sql_name(table.name) + " (" +
               sql_name(table.search) + ")";
    return sql;
}

/// A cell as text; other cells have other texts.
void append_cell(std::string& text, const Cell& cell) {
    text += static_cast<char>('0' + static_cast<int>(cell.type()));
    const auto append_number = [&text](auto number) {
        const auto bytes = std::bit_cast<std::array<char, sizeof number>>(number);
        text.append(bytes.data(), bytes.size());
    };
    switch (cell.type()) {
        case Cell::Type::integer:
            return append_number(cell.integer());
        case Cell::Type::real:
            return append_number(cell.real());
        case Cell::Type::text:
            append_number(cell.text().size());
            text += cell.text();
            return;
        case Cell::Type::null:
        case Cell::Type::date:
            return;
    }
}

/// The rows in an order that depends on nothing but what they hold.
std::vector<std::string> sorted(const RowSet& rows) {
    std::vector<std::string> texts(rows.rows());
    for (std::size_t row = 0; row < rows.rows(); ++row)
        for (std::size_t column = 0; column < rows.columns(); ++column)
            append_cell(texts[row], rows.at(column, row));
    std::ranges::sort(texts);
    return texts;
}

bool same(const StoredRows& a, const StoredRows& b) {
    return a.columns == b.columns && sorted(a.rows) == sorted(b.rows);
}

}  // namespace

ArchiveFile::ArchiveFile(std::string path) : path_(std::move(path)), file_(path_, kind) {
    // Of a file that is not complete nothing is kept.
    file_.execute("PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF");
}

ArchiveFile::~ArchiveFile() { tables_.clear(); }

StoredRows ArchiveFile::copy(HostDatabase& source, const ArchivedTable& table, const std::string& condition) {
    const std::string sql = "SELECT * FROM " + table.name + " WHERE " + condition;
    StoredRows rows = source.query_stored(sql);
    append(table_for(table, rows.columns), rows.rows);
    if (!reader_) reader_ = open_sqlite_database(path_, SqliteAccess::read_only);
    if (!same(rows, reader_->query_stored(sql))) fail();
    return rows;
}

ArchiveFile::Table& ArchiveFile::table_for(const ArchivedTable& table,
                                           const std::vector<std::string>& columns) {
    const auto [known, is_new] = tables_.try_emplace(table.name);
    if (is_new) {
        file_.execute(table_definition(table, columns));
        known->second.insert =
            std::make_unique<SqliteInsert>(file_, insert_into(sql_name(table.name), columns.size()));
    }
    return known->second;
}

void ArchiveFile::append(Table& table, const RowSet& rows) {
    file_.execute("BEGIN");
    for (std::size_t row = 0; row < rows.rows(); ++row) table.insert->row_of_cells(rows, row);
    file_.execute("COMMIT");
    table.rows += static_cast<std::int64_t>(rows.rows());
}

void ArchiveFile::close() {
    reader_.reset();
    for (auto& [name, table] : tables_) table.insert.reset();
    file_.close();
    const std::unique_ptr<HostDatabase> reader = open_sqlite_database(path_, SqliteAccess::read_only);
    for (const auto& [name, table] : tables_)
        if (reader->query_value("SELECT COUNT(*) FROM " + name) != Value(table.rows)) fail();
}

void ArchiveFile::fail() const {
    throw AutomationError(ErrorNumber::file,
                          "Das Archiv „" + path_ +
                              "“ enthält nicht, was hineingeschrieben wurde; der Datenträger "
                              "ist vermutlich schadhaft.");
}

}  // namespace prot
