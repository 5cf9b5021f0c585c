#include "apps/protcsv/sample/sample_framework_tables.h"

#include <optional>
#include <string>
#include <tuple>

namespace prot::sample {
namespace {

constexpr const char* indexes = R"(
CREATE INDEX iAuswertungsrahmenArt ON Auswertungsrahmen (ARa_Art, ARa_Typ);
CREATE INDEX iAuswertungsdichteRahmen ON Auswertungsdichte (ARa_Id);
CREATE INDEX iAuswertungsartRahmen ON Auswertungsart (ARa_Id);
CREATE INDEX iAuswertungsspalteArt ON Auswertungsspalte (Aa_Id);
CREATE INDEX iZeilenartRahmen ON Zeilenart (ARa_Id);
CREATE INDEX iAuswertungsPositionZeilenart ON AuswertungsPosition (Za_Id);
CREATE INDEX iAuswertungsPositionBezeichnung ON AuswertungsPosition (Ap_Bezeichnung);
CREATE INDEX iAuswertungszellePosition ON Auswertungszelle (Ap_Id);
CREATE INDEX iAuswertungszelleDichte ON Auswertungszelle (Ad_Id);
CREATE INDEX iFormelPositionPosition ON Formel_Position (AP_ID);
CREATE INDEX iFormelPositionKontenrahmen ON Formel_Position (KR_Id);
CREATE INDEX iSpaltenformateZeilenart ON Spaltenformate (Za_Id);
CREATE INDEX iSpaltenformateSpalte ON Spaltenformate (As_Id);
)";

/// By the kind of value; the first column is the key.
constexpr std::string_view types[] = {"INTEGER", "TEXT COLLATE NOCASE", "DATETIME"};

template <class Record>
std::string create_table() {
    const RecordTable<Record>& table = table_of<Record>();
    std::string sql = "CREATE TABLE ";
    sql.append(table.name);
    std::string_view key = " PRIMARY KEY", separator = " (\n    ";
    for (const Column<Record>& column : table.log.fields) {
        sql.append(separator).append(column.column).append(" ");
        sql.append(types[column.value(Record()).index()]).append(key);
        key = "";
        separator = ",\n    ";
    }
    return sql + "\n);\n";
}

std::optional<std::string> stored(const ColumnValue& value) {
    if (const auto* const moment = std::get_if<Moment>(&value))
        return *moment == Moment() ? std::nullopt : std::optional(iso_text(*moment));
    std::string text = logged_text(value);
    return text.empty() ? std::nullopt : std::optional(std::move(text));
}

/// A table that is being filled.
template <class Record>
class Filler {
public:
    explicit Filler(SqliteFile& file)
        : insert_((file.execute(create_table<Record>()), file),
                  insert_into(table_of<Record>().name, table_of<Record>().log.fields.size())) {}

    void write(const Record& record) {
        values_.clear();
        for (const Column<Record>& column : table_of<Record>().log.fields)
            values_.push_back(stored(column.value(record)));
        insert_.row_of_texts(values_);
    }

private:
    SqliteInsert insert_;
    std::vector<std::optional<std::string>> values_;
};

template <class... Records>
struct Fillers {
    explicit Fillers(SqliteFile& file) : each(Filler<Records>(file)...) {}

    template <class Record>
    void write(const Record& record) {
        std::get<Filler<Record>>(each).write(record);
    }

    std::tuple<Filler<Records>...> each;
};

template <class... Records>
struct Captions {
    static std::vector<Caption> all() {
        std::vector<Caption> captions;
        const auto add = [&captions](const auto& log) {
            for (const auto& column : log.fields)
                if (!column.caption.empty()) captions.push_back({log.name, column.column, column.caption});
        };
        (add(table_of<Records>().log), ...);
        return captions;
    }
};

/// Something for all kinds of record that are logged.
template <template <class...> class OfRecords>
using OfLoggedRecords = OfRecords<Framework, Density, ReportKind, ReportColumn, LineKind, Position, Cell,
                                  Assignment, ColumnFormat>;

}  // namespace

void write_frameworks(SqliteFile& file, const FrameworkDesk& desk) {
    Filler<Chart> chart_filler(file);
    for (const Chart& chart : charts()) chart_filler.write(chart);
    OfLoggedRecords<Fillers> fillers(file);
    const auto write_book = [&fillers](const FrameworkBook& book) {
        if (book.exists) visit_records(book, [&fillers](const auto& record) { fillers.write(record); });
    };
    for (const FrameworkBook& book : desk.cast()) write_book(book);
    for (const FrameworkBook& book : desk.others()) write_book(book);
    file.execute(indexes);
}

std::vector<Caption> framework_captions() { return OfLoggedRecords<Captions>::all(); }

}  // namespace prot::sample
