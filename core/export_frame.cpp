#include "core/export_frame.h"

#include <algorithm>
#include <array>
#include <limits>

#include "core/ProtQRBCsvBas.h"
#include "core/change_document.h"
#include "core/event_names.h"

namespace prot {

namespace {

constexpr std::string_view no_data = "Keine Daten vorhanden!";

/// The captions of the common cells, in the order of CommonCell.
constexpr std::array<std::string_view, common_cells> common_captions = {
    "Datum der Änderung", "Mitarbeiter", "Feld der Änderung", "Aktion", "alter Wert", "neuer Wert",
    "Arbeitsstation",     "Applikation", "Datenbankbenutzer",
};

/// The look-ups of one file, from construction to destruction.
class Lookups {
public:
    explicit Lookups(Database& oDBU) : oDBU_(oDBU) { oDBU_.begin_lookups(); }
    ~Lookups() { oDBU_.end_lookups(); }
    Lookups(const Lookups&) = delete;
    Lookups& operator=(const Lookups&) = delete;

private:
    Database& oDBU_;
};

/// The host's number for row `index`; the largest there is for rows beyond it.
std::int32_t row_number(const RowSet& rows, std::size_t index) {
    constexpr std::int64_t largest = std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(std::min(rows.first_row() + static_cast<std::int64_t>(index), largest));
}

}  // namespace

std::string_view caption_or_empty(std::string_view field, std::string_view table, Run& run) {
    const std::string_view caption = PROT_gsGetFieldDescription(table, field, run);
    if (!caption.empty() && caption != undefined) return caption;
    run.environment.notices.field_without_caption(table, field);
    return {};
}

std::string csv_file_name(std::string_view word, std::string_view psCommandline, Environment& environment) {
    std::string name = "Prot_" + std::string(word);
    if (!psCommandline.empty()) name += gsDateiZeitstempel(environment);
    return name + ".csv";
}

void report_no_data(const std::string& file_name, std::string_view psCommandline, BoxStyle style,
                    Environment& environment) {
    if (psCommandline.empty())
        environment.message_boxes.show(no_data, style, "Protokollierung");
    else
        gWriteCSVAutoStartOhneDaten(file_name, psCommandline, no_data, environment);
}

ExportFrame::ExportFrame(Run& run, ProgressParent* poParent, std::size_t cells)
    : run_(run), poParent_(poParent), first_common_(cells - common_captions.size()), line_(cells) {}

bool ExportFrame::write_file(CsvWriter& writer, bool ask_user, std::string& file_name,
                             std::string_view filter_text, std::span<const std::string_view> leading_captions,
                             const RowSet& rows, SectionLines& section) {
    rows.require_columns(log_columns);
    ScreenPointer& pointer = run_.environment.screen_pointer;
    pointer.set(Pointer::standard);
    if (!writer.open(file_name, ask_user)) return false;
    pointer.set(Pointer::hourglass);
    if (poParent_) poParent_->gRefresh();
    write_head(writer, filter_text, leading_captions);
    write_records(writer, rows, section);
    // A caption lookup answers a failed statement with no caption; a lost connection must not pass for a
    // short file.
    run_.oDBU.require_connection();
    writer.close();
    pointer.set(Pointer::standard);
    return true;
}

void ExportFrame::write_head(CsvWriter& writer, std::string_view filter_text,
                             std::span<const std::string_view> leading_captions) {
    line_.clear();
    line_[0] = filter_text;
    writer.write_line(line_.cells());
    line_.clear();
    for (std::size_t i = 0; i < leading_captions.size(); ++i) line_[i] = leading_captions[i];
    for (std::size_t i = 0; i < common_captions.size(); ++i) line_[first_common_ + i] = common_captions[i];
    writer.write_line(line_.cells());
}

void ExportFrame::write_records(CsvWriter& writer, const RowSet& rows, SectionLines& section) {
    const Lookups lookups(run_.oDBU);
    ChangeDocument document(run_.environment);
    for (std::size_t i = 0; i < rows.rows(); ++i) {
        if (poParent_) poParent_->gSetFortschritt(row_number(rows, i), row_number(rows, rows.rows()));
        const LogRow row(rows, i);
        line_.clear();
        if (!section.describe_record(row, line_)) continue;
        fill_common_cells(row);
        switch (document.load(row.text(LogColumn::dmData, scratch_))) {
            case ChangeDocument::Loaded::yes:
                write_fields(writer, row, document, section);
                break;
            case ChangeDocument::Loaded::empty:
                break;
            case ChangeDocument::Loaded::unreadable:
                run_.environment.notices.unreadable_document(row.id());
        }
    }
}

void ExportFrame::fill_common_cells(const LogRow& row) {
    const auto fill = [&row](std::string& cell, LogColumn column) { append_text(cell, row[column]); };
    fill(cell(CommonCell::date), LogColumn::ddDatum);
    cell(CommonCell::event) = event_name(row.number(LogColumn::dlEvent));
    fill(cell(CommonCell::user), LogColumn::dcUser);
    fill(cell(CommonCell::database_user), LogColumn::dcSystemUser);
    PROT_gGetUserInfo(cell(CommonCell::user), cell(CommonCell::database_user), run_);
    fill(cell(CommonCell::workstation), LogColumn::dcWorkstation);
    fill(cell(CommonCell::application), LogColumn::dcApplication);
}

void ExportFrame::write_fields(CsvWriter& writer, const LogRow& row, ChangeDocument& document,
                               SectionLines& section) {
    const std::string_view table = row.text(LogColumn::dcTable, scratch_);
    for (std::int32_t i = 0; i < document.columns(); ++i) {
        const std::string_view field = document.select(i);
        const std::string_view caption = section.caption(field, table, row);
        if (caption.empty()) continue;
        cell(CommonCell::field) = caption;
        cell(CommonCell::old_value) = document.old_value();
        cell(CommonCell::new_value) = document.new_value();
        section.translate_values(field, table, row, line_);
        writer.write_line(line_.cells());
    }
}

}  // namespace prot
