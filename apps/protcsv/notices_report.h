#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "platform/export_notices.h"

namespace prot {

/// Counts what an export leaves out, to be told at its end. A field that was counted before costs one search
/// and no memory.
class NoticesReport : public ExportNotices {
public:
    void field_without_caption(std::string_view table, std::string_view column) override;
    void lookup_failed(std::string_view error) override;
    void unreadable_document(std::int64_t log_id) override;

    /// The lines for a person; empty when nothing was left out.
    std::string text() const;

    /// The line that tells of failed look-ups; empty when none failed. No mere notice: the file may lack
    /// lines.
    std::string failures_text() const;

private:
    /// Orders (table, column), held or only looked at.
    struct FieldOrder {
        using is_transparent = void;
        template <typename A, typename B>
        bool operator()(const A& a, const B& b) const {
            const int tables = std::string_view(a.first).compare(b.first);
            return tables != 0 ? tables < 0 : std::string_view(a.second) < std::string_view(b.second);
        }
    };

    std::string fields_text() const;
    std::string documents_text() const;

    std::map<std::pair<std::string, std::string>, std::int64_t, FieldOrder> fields_;
    std::vector<std::int64_t> documents_;  ///< the first ones, as many as are listed
    std::int64_t document_count_ = 0;
    std::string first_failure_;
    std::int64_t failure_count_ = 0;
};

}  // namespace prot
