#pragma once

#include <cstdint>
#include <string_view>

namespace prot {

/// Hears what an export leaves out by the log's rules, so that a host can say so; nothing is lost unseen.
class ExportNotices {
public:
    virtual ~ExportNotices() = default;

    /// The run's filter, by a person or a batch text: what the first line of a file says of it.
    virtual void filter_accepted(std::string_view /*text*/) {}

    /// A changed field had no caption, so it got no line. Called once per field and record.
    virtual void field_without_caption(std::string_view table, std::string_view column) = 0;

    /// A look-up failed and was answered with its default, as the rules want; `error` says why. Its answer
    /// may be missing from the file.
    virtual void lookup_failed(std::string_view error) = 0;

    /// The change document of this log record does not load, so the record got no line.
    virtual void unreadable_document(std::int64_t log_id) = 0;
};

}  // namespace prot
