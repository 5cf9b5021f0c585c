#include "core/export_frame.h"

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

#include "core/ProtQRBCsvBas.h"
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
    explicit Lookups(Database& oDBU) : database_(oDBU) { database_.begin_lookups(); }
    ~Lookups() { database_.end_lookups(); }
    Lookups(const Lookups&) = delete;
    Lookups& operator=(const Lookups&) = delete;

private:
    Database& database_;
};

/// Tells a parent how far the records are, in the host's own numbers; the largest there is stands for those
/// beyond. Where there are more records than expected, the last ones stand at the end.
class RecordProgress {
public:
    RecordProgress(ProgressParent* parent, LogRows& rows, LineRules::ProgressEnd end) : parent_(parent) {
        if (!parent_) return;
        next_ = rows.first_number();
        end_ = end_of(rows, end);
    }

    void begin_record() {
        if (!parent_) return;
        parent_->gSetFortschritt(number(std::min(next_, end_)), number(end_));
        ++next_;
    }

private:
    static std::int64_t end_of(LogRows& rows, LineRules::ProgressEnd end) {
        const std::int64_t behind_last = rows.first_number() + rows.expected_count();
        if (end == LineRules::ProgressEnd::row_count) return behind_last;
        return std::max<std::int64_t>(behind_last - 1, 1);
    }
    static std::int32_t number(std::int64_t wanted) {
        constexpr std::int64_t largest = std::numeric_limits<std::int32_t>::max();
        return static_cast<std::int32_t>(std::min(wanted, largest));
    }

    ProgressParent* parent_;
    std::int64_t next_ = 0;
    std::int64_t end_ = 0;
};

}  // namespace

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

ExportFrame::ExportFrame(Run& run, ProgressParent* poParent, SectionLines& section, const FileHead& head)
    : run_(run),
      parent_(poParent),
      section_(section),
      rules_(section.rules()),
      head_(head),
      line_(head.captions.size() + common_captions.size()) {}

bool ExportFrame::write_file(CsvWriter& writer, bool ask_user, std::string& file_name, LogRows& rows) {
    rows.require_log_columns();
    ScreenPointer& pointer = run_.environment.screen_pointer;
    pointer.set(Pointer::standard);
    if (ask_user) rows.release();
    if (!writer.open(file_name, ask_user)) return false;
    pointer.set(Pointer::hourglass);
    if (parent_) parent_->gRefresh();
    write_head(writer);
    write_records(writer, rows);
    // A caption lookup answers a failed statement with no caption; a lost connection must not pass for a
    // short file.
    run_.oDBU.require_connection();
    writer.close();
    pointer.set(Pointer::standard);
    return true;
}

void ExportFrame::write_head(CsvWriter& writer) {
    line_.clear();
    line_[0] = head_.filter_text;
    writer.write_line(line_.cells());
    line_.clear();
    std::size_t index = 0;
    for (const std::string_view caption : head_.captions) line_[index++] = caption;
    for (const std::string_view caption : common_captions) line_[index++] = caption;
    writer.write_line(line_.cells());
}

void ExportFrame::write_records(CsvWriter& writer, LogRows& rows) {
    const Lookups lookups(run_.oDBU);
    ChangeDocument document(run_.environment);
    RecordProgress progress(parent_, rows, rules_.progress_end);
    while (const LogRow* const row = rows.next()) {
        progress.begin_record();
        lines_ = 0;
        const NoLine why = write_record(writer, *row, document);
        run_.environment.notices.record_read(row->id(), lines_, lines_ > 0 ? NoLine::none : why);
    }
}

/// Why the record has no line, when it has none.
NoLine ExportFrame::write_record(CsvWriter& writer, const LogRow& row, ChangeDocument& document) {
    using Description = LineRules::Description;
    line_.clear();
    if (rules_.described == Description::first && !section_.describe_record(row, line_))
        return NoLine::not_described;
    fill_common_cells(row);
    if (rules_.described == Description::behind_common_cells && !section_.describe_record(row, line_))
        return NoLine::not_described;
    if (rules_.only_dated && !row.has_moment()) return NoLine::without_moment;
    switch (document.load(row.text(LogColumn::dmData, scratch_))) {
        case ChangeDocument::Loaded::yes:
            return write_fields(writer, row, document);
        case ChangeDocument::Loaded::unreadable:
            return NoLine::unreadable_document;
        case ChangeDocument::Loaded::empty:
            break;
    }
    return NoLine::without_changes;
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

/// Likewise.
NoLine ExportFrame::write_fields(CsvWriter& writer, const LogRow& row, ChangeDocument& document) {
    if (document.columns() == 0) return NoLine::without_changes;
    const std::string_view table = row.text(LogColumn::dcTable, scratch_);
    bool described = rules_.described != LineRules::Description::with_first_line;
    for (std::int32_t i = 0; i < document.columns(); ++i) {
        const std::string_view name = document.select(i);
        const ChangedField field{name, table, row, fields_.number_of(table, name)};
        const std::string_view caption = section_.caption(field);
        if (caption.empty()) continue;
        cell(CommonCell::field) = caption;
        if (!described && !section_.describe_record(row, line_)) return NoLine::not_described;
        described = true;
        cell(CommonCell::old_value) = document.old_value();
        cell(CommonCell::new_value) = document.new_value();
        // Both marks are resolved before either value is translated.
        auto marked_old = section_.marked_old_value(field, cell(CommonCell::old_value));
        auto marked_new = section_.marked_new_value(field, cell(CommonCell::new_value));
        fill_value(CommonCell::old_value, field, std::move(marked_old));
        fill_value(CommonCell::new_value, field, std::move(marked_new));
        writer.write_line(line_.cells());
        ++lines_;
    }
    return NoLine::no_field_exported;
}

void ExportFrame::fill_value(CommonCell which, const ChangedField& field, std::optional<std::string> marked) {
    std::string& value = cell(which);
    if (marked) value = *std::move(marked);
    if (value.empty())
        value = rules_.empty_value;
    else if (std::string text = section_.translated_value(field, value); !text.empty())
        value = std::move(text);
}

}  // namespace prot
