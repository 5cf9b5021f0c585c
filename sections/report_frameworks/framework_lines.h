#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/export_frame.h"
#include "sections/report_frameworks/framework_memos.h"
#include "sections/report_frameworks/framework_records.h"
#include "sections/report_frameworks/framework_values.h"

namespace prot::report_frameworks {

/// The cells before the common ones.
enum FrameworkCell : std::size_t { framework_cell, density_cell, record_cell };

inline constexpr std::string_view framework_captions[] = {"Auswertungsrahmen", "Auswertungsdichte",
                                                          "Änderung in"};

/// The lines of report frameworks: which framework, density and record a change belongs to, long texts in
/// place of their mark, values as the suite's translation objects tell them.
class FrameworkLines : public SectionLines {
public:
    explicit FrameworkLines(Run& run) : run_(run), records_(run), values_(run), memos_(run) {}

    LineRules rules() const override;
    bool describe_record(const LogRow& row, CsvLine& line) override;
    std::string_view caption(const ChangedField& field) override;
    std::optional<std::string> marked_old_value(const ChangedField& field, std::string_view logged) override;
    std::optional<std::string> marked_new_value(const ChangedField& field, std::string_view logged) override;
    std::string translated_value(const ChangedField& field, std::string_view value) override;

private:
    Run& run_;
    FrameworkRecords records_;
    FrameworkValues values_;
    FrameworkMemos memos_;
    std::string scratch_;
};

/// The caption of a changed field; empty for the technical fields of its table, and for all but the name of a
/// record that was created.
std::string_view msDBGetFieldDescription(const ChangedField& field, Run& run);

}  // namespace prot::report_frameworks
