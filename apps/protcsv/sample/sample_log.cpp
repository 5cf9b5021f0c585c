#include "apps/protcsv/sample/sample_log.h"

#include <utility>

namespace prot::sample {
namespace {

constexpr std::int64_t rows_between_late_ones = 37;

struct Escape {
    char character;
    std::string_view reference;
};

// Line breaks as references, so that CR LF survives the reading of the document.
constexpr Escape escapes[] = {
    {'&', "&amp;"}, {'<', "&lt;"}, {'>', "&gt;"}, {'\r', "&#13;"}, {'\n', "&#10;"},
};

void append_escaped(std::string& text, std::string_view value) {
    for (const char character : value) {
        std::string_view written(&character, 1);
        for (const Escape& escape : escapes) {
            if (escape.character == character) written = escape.reference;
        }
        text += written;
    }
}

}  // namespace

void ChangeDocument::add(std::string_view column, std::string_view old_value, std::string_view new_value) {
    text_ += "<Col Name=\"";
    text_ += column;
    text_ += "\"><OldValue>";
    append_escaped(text_, old_value);
    text_ += "</OldValue><NewValue>";
    append_escaped(text_, new_value);
    text_ += "</NewValue></Col>";
}

std::string ChangeDocument::finish() { return std::move(text_) + "</Cols>"; }

std::string decimal_text(std::int64_t number, int decimals) {
    const auto places = static_cast<std::size_t>(decimals);
    std::string digits = std::to_string(number < 0 ? -number : number);
    if (digits.size() <= places) digits.insert(0, places + 1 - digits.size(), '0');
    digits.insert(digits.size() - places, 1, ',');
    return number < 0 ? "-" + digits : digits;
}

LogRow without_document(LogRow row) {
    row.document.reset();
    return row;
}

LogRow with_empty_document(LogRow row) {
    row.document->clear();
    return row;
}

LogRow with_broken_document(LogRow row) {
    row.document->resize(row.document->size() / 2);
    return row;
}

LogRow without_memo(LogRow row) {
    row.memo.clear();
    return row;
}

LogRow without_date(LogRow row) {
    row.has_date = false;
    return row;
}

LogRow logged_as(LogRow row, std::string_view column, std::string_view old_value,
                 std::string_view new_value) {
    ChangeDocument document;
    document.add(column, old_value, new_value);
    row.document = document.finish();
    return row;
}

LogWriter::LogWriter(SqliteFile& file)
    : file_(file),
      insert_(
          file,
          "INSERT INTO tProtokoll (dcTable, dcWorkstation, dcUser, ddDatum, dlEvent, dmData, dcSystemUser,"
          " dcApplication, dlPrimaryKey1, dlPrimaryKey2, dlSuchId1, dlSuchId2, dlSuchId3, dlSuchId4,"
          " flSuchId1, flSuchId2, flSuchId3)"
          " VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"),
      insert_memo_(file, "INSERT INTO tProtokollMemo (flProtokoll, dmData) VALUES (?, ?)") {}

void LogWriter::add(LogRow row) {
    if (++added_ % rows_between_late_ones == 0) {
        late_ = std::move(row);
        return;
    }
    write(row);
    finish();
}

void LogWriter::finish() {
    if (!late_) return;
    write(*late_);
    late_.reset();
}

void LogWriter::write(const LogRow& row) {
    const auto& [moment, author] = row.occasion;
    const LogKeys& keys = row.keys;
    const auto& search = keys.search_ids;
    const auto& related = keys.related_ids;
    const std::optional<std::string> date = row.has_date ? std::optional(iso_text(moment)) : std::nullopt;
    insert_.row(row.table, author.workstation, author.user, date, static_cast<int>(row.event), row.document,
                author.system_user, author.application, keys.primary_key1, keys.primary_key2,  //
                search[0], search[1], search[2], search[3], related[0], related[1], related[2]);
    if (!row.memo.empty()) insert_memo_.row(file_.last_key(), row.memo);
}

}  // namespace prot::sample
