#include "apps/protcsv/deletion/log_archive.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>

#include "apps/protcsv/console/interruption.h"
#include "core/ProtQRBCsvBas.h"
#include "platform/automation/letter_case.h"
#include "platform/automation/text_parts.h"
#include "platform/portable/files/atomic_file.h"
#include "platform/portable/files/private_folder.h"
#include "platform/portable/files/sha256.h"

namespace prot {

namespace {

namespace fs = std::filesystem;

// So many keys stand in one statement: few enough for any server, and a shape that comes again.
constexpr std::size_t piece = 200;

std::string list_of(std::span<const std::int64_t> numbers) {
    std::string text = "(";
    for (const std::int64_t number : numbers) text += (text.size() > 1 ? ", " : "") + std::to_string(number);
    return text + ")";
}

std::string list_of(std::span<const std::string> texts) {
    std::string list = "(";
    for (const std::string& text : texts) {
        if (list.size() > 1) list += ", ";
        append_quoted(list, text, '\'');
    }
    return list + ")";
}

/// Calls `use` with one piece after another.
template <typename Value, typename Use>
void in_pieces(const std::vector<Value>& values, Use use) {
    for (std::size_t at = 0; at < values.size(); at += piece)
        use(std::span(values).subspan(at, std::min(piece, values.size() - at)));
}

std::optional<std::size_t> column_named(const StoredRows& rows, std::string_view name) {
    const auto found = std::ranges::find_if(rows.columns, [name](const std::string& column) {
        return to_lower(std::string_view(column)) == to_lower(name);
    });
    if (found == rows.columns.end()) return std::nullopt;
    return static_cast<std::size_t>(found - rows.columns.begin());
}

KeptFile described(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    Sha256 sum;
    KeptFile result{path_text(file), 0, {}};
    std::array<char, 65536> buffer{};
    while (in.read(buffer.data(), buffer.size()) || in.gcount() > 0) {
        sum.add({buffer.data(), static_cast<std::size_t>(in.gcount())});
        result.bytes += in.gcount();
    }
    if (!in.eof()) throw file_error(file, std::make_error_code(std::errc::io_error));
    result.sha256 = sum.hexadecimal();
    return result;
}

}  // namespace

LogArchive::LogArchive(fs::path place, std::int32_t section, HostDatabase& source, RunAccount& account,
                       ArchiveMakers makers)
    : place_(std::move(place)),
      section_(section),
      source_(source),
      account_(account),
      makers_(std::move(makers)) {}

void LogArchive::keep(const SelectedRecords& records) {
    if (!place_.parent_path().empty()) system_files().make_folder(place_.parent_path());
    folder_ = make_private_folder(place_);
    name_unfinished_files();
    DeletionAccount& kept = *account_.deletion;
    kept.folder = path_text(folder_);
    copy_rows(records);
    kept.database = described(folder_ / database_name);
    export_csv();
    kept.records = static_cast<std::int64_t>(ids_.size());
    kept.memos = memos_;
    kept.state = "archived";
    write_receipt(std::nullopt);
    flush();
}

void LogArchive::copy_rows(const SelectedRecords& records) {
    ids_ = records.ids(source_);
    ArchiveFile file(path_text(folder_ / database_name));
    in_pieces(ids_, [&](std::span<const std::int64_t> ids) { copy_piece(file, records, ids); });
    copy_explanations(file);
    file.close();
}

void LogArchive::copy_piece(ArchiveFile& file, const SelectedRecords& records,
                            std::span<const std::int64_t> ids) {
    const std::string id = records.id_column();
    const StoredRows rows = file.copy(source_, {records.table(), id}, id + " IN " + list_of(ids));
    if (rows.rows.rows() != ids.size())
        throw AutomationError(ErrorNumber::internal,
                              "Es wurde nichts gelöscht: Während das Archiv geschrieben wurde, verschwanden "
                              "ausgewählte Sätze aus dem Protokoll.");
    if (const auto table = column_named(rows, "dcTable"))
        for (std::size_t row = 0; row < rows.rows.rows(); ++row)
            if (const Cell& cell = rows.rows.at(*table, row); cell.type() == Cell::Type::text)
                tables_.emplace(cell.text());
    if (!records.have_memos()) return;
    const ArchivedTable memos{records.table() + "Memo", {}, "flProtokoll"};
    const StoredRows texts = file.copy(source_, memos, "flProtokoll IN " + list_of(ids));
    memos_ += static_cast<std::int64_t>(texts.rows.rows());
}

/// The rows that tell which section, tables and captions the records are about.
void LogArchive::copy_explanations(ArchiveFile& file) {
    file.copy(source_, {"tSysQuvoLogSections"}, "IDSysQuvoLogSections = " + std::to_string(section_));
    std::vector<std::int64_t> keys;
    in_pieces(std::vector(tables_.begin(), tables_.end()), [&](std::span<const std::string> names) {
        const StoredRows rows = file.copy(source_, {"tSysQuvoTables"}, "dcTableName IN " + list_of(names));
        const auto key = column_named(rows, "IDSysQuvoTables");
        for (std::size_t row = 0; key && row < rows.rows.rows(); ++row)
            if (const Cell& cell = rows.rows.at(*key, row); cell.type() == Cell::Type::integer)
                keys.push_back(cell.integer());
    });
    in_pieces(keys, [&](std::span<const std::int64_t> tables) {
        file.copy(source_, {"tSysQuvoColumns"}, "flTable IN " + list_of(tables));
    });
}

void LogArchive::export_csv() {
    std::vector<std::int64_t> exported;
    account_.sum.emplace();
    account_.notices.list_records(&exported);
    makers_.export_into(folder_);
    account_.notices.list_records(nullptr);
    name_unfinished_files();
    std::ranges::sort(exported);
    CountedRecords& rest = account_.deletion->not_exported;
    std::vector<std::int64_t> missing;
    std::ranges::set_difference(ids_, exported, std::back_inserter(missing));
    rest.count = static_cast<std::int64_t>(missing.size());
    missing.resize(std::min(missing.size(), NoticesReport::most_records));
    rest.first = std::move(missing);
    if (account_.file.empty()) return;
    const KeptFile csv = described(text_path(account_.file));
    account_.file_sum = account_.sum->hexadecimal();
    if (csv.bytes != account_.bytes || csv.sha256 != account_.file_sum)
        throw AutomationError(ErrorNumber::file, "Die Datei „" + account_.file +
                                                     "“ enthält nicht, was hineingeschrieben wurde; der "
                                                     "Datenträger ist vermutlich schadhaft.");
    make_private(text_path(account_.file));
}

void LogArchive::write_receipt(std::optional<int> status) {
    const std::unique_ptr<PendingFile> file = system_files().prepare(folder_ / receipt_name);
    file->create();
    file->write(makers_.receipt(status));
    file->complete();
    make_private(folder_ / receipt_name);
}

void LogArchive::flush() {
    make_private(folder_ / database_name);
    flush_file(folder_ / database_name);
    if (!account_.file.empty()) flush_file(text_path(account_.file));
    flush_folder(folder_);
    flush_folder(folder_.parent_path());
}

void LogArchive::records_went(const Deleted& /*deleted*/) noexcept { finish("deleted", 0); }

void LogArchive::outcome_is_unknown() noexcept { finish("unknown", 1); }

/// The archive stays, whatever becomes of its receipt.
void LogArchive::finish(std::string_view state, std::optional<int> status) noexcept {
    try {
        set_unfinished_folder({}, {});
        account_.deletion->state = state;
        write_receipt(status);
    } catch (const std::exception& error) {
        trouble_ = "Der Beleg „" + path_text(folder_ / receipt_name) +
                   "“ ließ sich nicht fortschreiben: " + error.what();
    }
}

void LogArchive::nothing_went() noexcept {
    if (folder_.empty()) return;
    std::error_code ignored;
    for (const std::string& name : files_) fs::remove(folder_ / text_path(name), ignored);
    fs::remove(folder_, ignored);
    set_unfinished_folder({}, {});
    account_.file.clear();
    account_.deletion = DeletionAccount{};
}

void LogArchive::name_unfinished_files() {
    files_ = {std::string(database_name), std::string(receipt_name)};
    if (!account_.file.empty()) files_.push_back(path_text(text_path(account_.file).filename()));
    set_unfinished_folder(path_text(folder_), files_);
}

}  // namespace prot
