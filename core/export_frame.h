#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "core/change_document.h"
#include "core/changed_field.h"
#include "core/csv_line.h"
#include "core/field_numbers.h"
#include "core/log_rows.h"
#include "core/run.h"
#include "platform/csv_writer.h"
#include "platform/export_notices.h"
#include "platform/progress_parent.h"

/// The frame that the exports of all sections share: file name, no-data case, lines of the file.
namespace prot {

/// The cells that every section's lines end with, relative to the first of them.
enum class CommonCell : std::size_t {
    date,
    user,
    field,
    event,
    old_value,
    new_value,
    workstation,
    application,
    database_user,
};

inline constexpr std::size_t common_cells = 9;

/// Where the sections' rules about their lines differ.
struct LineRules {
    enum class Description { first, behind_common_cells, with_first_line };
    enum class ProgressEnd { row_count, last_row };

    Description described = Description::first;         ///< when a record is described
    std::string_view empty_value{};                     ///< stands for an empty old or new value
    bool only_dated = false;                            ///< a record without moment has no line
    ProgressEnd progress_end = ProgressEnd::row_count;  ///< what the host's progress counts up to
};

/// What a section adds to the lines of its file.
class SectionLines {
public:
    virtual ~SectionLines() = default;

    virtual LineRules rules() const { return {}; }

    /// Fills the cells before the common ones, the same for all lines of the record. False: the record has no
    /// line.
    virtual bool describe_record(const LogRow& row, CsvLine& line) = 0;

    /// The caption of a changed field; empty when the field gets no line. Valid until the next call.
    virtual std::string_view caption(const ChangedField& field) = 0;

    /// The old value that a logged mark stands for, likewise the new one; nothing when the logged value is no
    /// mark.
    virtual std::optional<std::string> marked_old_value(const ChangedField& /*field*/,
                                                        std::string_view /*logged*/) {
        return std::nullopt;
    }
    virtual std::optional<std::string> marked_new_value(const ChangedField& /*field*/,
                                                        std::string_view /*logged*/) {
        return std::nullopt;
    }

    /// What a reader understands by a value, which is not empty; empty when it stays as it is.
    virtual std::string translated_value(const ChangedField& field, std::string_view value) = 0;
};

/// "Prot_" and the section's word, then the time stamp only in batch mode, then ".csv".
std::string csv_file_name(std::string_view word, std::string_view psCommandline, Environment& environment);

/// What a run without rows says: in batch mode the no-data file, else a message box of `style`.
void report_no_data(const std::string& file_name, std::string_view psCommandline, BoxStyle style,
                    Environment& environment);

/// The two lines above all others.
struct FileHead {
    std::string_view filter_text;                ///< alone in line 1
    std::span<const std::string_view> captions;  ///< of the cells before the common ones
};

/// One file of a section.
class ExportFrame {
public:
    ExportFrame(Run& run, ProgressParent* poParent, SectionLines& section, const FileHead& head);

    /// Opens the file, writes its head and the lines of all records, and closes it. ask_user: the person may
    /// change file_name; nothing is held in the database meanwhile. False when the person cancels; then
    /// nothing is written. Rows that lack a column of the log: automation error 9, before a file is opened.
    bool write_file(CsvWriter& writer, bool ask_user, std::string& file_name, LogRows& rows);

private:
    void write_head(CsvWriter& writer);
    void write_records(CsvWriter& writer, LogRows& rows);
    NoLine write_record(CsvWriter& writer, const LogRow& row, ChangeDocument& document);
    void fill_common_cells(const LogRow& row);
    NoLine write_fields(CsvWriter& writer, const LogRow& row, ChangeDocument& document);
    void fill_value(CommonCell which, const ChangedField& field, std::optional<std::string> marked);
    std::string& cell(CommonCell which) {
        return line_[head_.captions.size() + static_cast<std::size_t>(which)];
    }

    Run& run_;
    ProgressParent* parent_;
    SectionLines& section_;
    const LineRules rules_;
    const FileHead head_;
    CsvLine line_;
    FieldNumbers fields_;
    std::int64_t lines_ = 0;  // of the record at hand
    std::string scratch_;
};

}  // namespace prot
