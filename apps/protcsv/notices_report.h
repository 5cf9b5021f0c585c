#pragma once

#include <array>
#include <cstddef>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "platform/export_notices.h"

namespace prot {

/// Why a record got no line, as a person is told.
enum class LeftOut : std::uint8_t {
    without_caption,
    not_exported,
    unreadable_document,
    without_changes,
    without_moment,
    not_described,
};

inline constexpr std::size_t left_out_reasons = 6;

/// So many of what is lost are named in a text; the rest is counted.
inline constexpr std::size_t most_listed = 20;

/// Records of one kind: all counted, the first listed.
struct CountedRecords {
    std::int64_t count = 0;
    std::vector<std::int64_t> first;  ///< as many as are listed
};

/// A field without caption, and how many times it was changed; valid as long as whoever counted it.
struct CountedField {
    std::string_view table, column;
    std::int64_t count = 0;
};

/// Counts what an export reads, writes and leaves out, to be told at its end. A record costs no memory but in
/// the lists, a field that was counted before one search.
class NoticesReport : public ExportNotices {
public:
    /// As many records are listed of each reason.
    static constexpr std::size_t most_records = 1000;

    void field_without_caption(std::string_view table, std::string_view column) override;
    void lookup_failed(std::string_view error) override;
    void filter_accepted(std::string_view text) override { filter_text_ = text; }
    void record_read(std::int64_t log_id, std::int64_t lines, NoLine why) override;

    /// Appends the id of every record that is read from now on; null: no more.
    void list_records(std::vector<std::int64_t>* ids) { ids_ = ids; }

    const std::string& filter_text() const { return filter_text_; }  ///< empty: not known
    std::int64_t records() const { return records_; }
    std::int64_t lines() const { return lines_; }  ///< without the head of the file
    const CountedRecords& left_out(LeftOut reason) const {
        return left_out_[static_cast<std::size_t>(reason)];
    }
    std::int64_t left_out() const;
    bool lacks_captions() const { return !fields_.empty(); }
    /// The most frequent first, then by name.
    std::vector<CountedField> fields_without_caption() const;
    std::int64_t failed_lookups() const { return failure_count_; }
    const std::string& first_failure() const { return first_failure_; }

    /// The lines for a person; empty when there is nothing to tell. Failures: of look-ups, so that the file
    /// may lack lines.
    std::string fields_text() const;
    std::string documents_text() const;
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

    std::string filter_text_;
    std::vector<std::int64_t>* ids_ = nullptr;
    std::int64_t records_ = 0, lines_ = 0;
    bool lacks_caption_ = false;  // a field of the record at hand
    std::array<CountedRecords, left_out_reasons> left_out_;
    std::map<std::pair<std::string, std::string>, std::int64_t, FieldOrder> fields_;
    std::string first_failure_;
    std::int64_t failure_count_ = 0;
};

}  // namespace prot
