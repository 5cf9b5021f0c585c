#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "core/csv_line.h"
#include "core/log_row.h"
#include "core/run.h"
#include "platform/csv_writer.h"
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

/// What a section adds to the lines of its file.
class SectionLines {
public:
    virtual ~SectionLines() = default;

    /// Fills the cells before the common ones, the same for all lines of the record. False: the record has no
    /// line.
    virtual bool describe_record(const LogRow& row, CsvLine& line) = 0;

    /// The caption of a changed field; empty when the field gets no line. Valid until the next call.
    virtual std::string_view caption(std::string_view field, std::string_view table, const LogRow& row) = 0;

    /// Replaces old and new value, which stand in the line as logged, by what a reader understands.
    virtual void translate_values(std::string_view field, std::string_view table, const LogRow& row,
                                  CsvLine& line) = 0;
};

/// Replaces the old and the new value, each where it is not empty, by what `translate` answers for it; an
/// empty answer leaves the value as logged. leading: how many cells stand before the common ones.
template <class Translate>
void translate_both(CsvLine& line, std::size_t leading, Translate translate) {
    for (const CommonCell which : {CommonCell::old_value, CommonCell::new_value}) {
        std::string& value = line[leading + static_cast<std::size_t>(which)];
        if (value.empty()) continue;
        if (std::string text = translate(std::string_view(value)); !text.empty()) value = std::move(text);
    }
}

/// The caption of a field by the field descriptions; empty without one, and then the notices hear of it.
std::string_view caption_or_empty(std::string_view field, std::string_view table, Run& run);

/// "Prot_" and the section's word, then the time stamp only in batch mode, then ".csv".
std::string csv_file_name(std::string_view word, std::string_view psCommandline, Environment& environment);

/// What a run without rows says: in batch mode the no-data file, else a message box of `style`.
void report_no_data(const std::string& file_name, std::string_view psCommandline, BoxStyle style,
                    Environment& environment);

/// One file of a section. cells: how many a line has; the last nine are the common ones.
class ExportFrame {
public:
    ExportFrame(Run& run, ProgressParent* poParent, std::size_t cells);

    /// Opens the file, writes the filter text alone in a line, the header, and the lines of all records, and
    /// closes it. ask_user: the person may change file_name. False when the person cancels; then nothing is
    /// written. Rows that lack a column of the log: automation error 9, before a file is opened.
    bool write_file(CsvWriter& writer, bool ask_user, std::string& file_name, std::string_view filter_text,
                    std::span<const std::string_view> leading_captions, const RowSet& rows,
                    SectionLines& section);

    /// The index of a common cell in the line.
    std::size_t index(CommonCell cell) const { return first_common_ + static_cast<std::size_t>(cell); }

private:
    void write_head(CsvWriter& writer, std::string_view filter_text,
                    std::span<const std::string_view> leading_captions);
    void write_records(CsvWriter& writer, const RowSet& rows, SectionLines& section);
    void fill_common_cells(const LogRow& row);
    void write_fields(CsvWriter& writer, const LogRow& row, class ChangeDocument& document,
                      SectionLines& section);
    std::string& cell(CommonCell which) { return line_[index(which)]; }

    Run& run_;
    ProgressParent* poParent_;
    std::size_t first_common_;
    CsvLine line_;
    std::string scratch_;
};

}  // namespace prot
