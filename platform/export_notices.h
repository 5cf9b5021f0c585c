#pragma once

#include <cstdint>
#include <string_view>

namespace prot {

/// Hears what an export leaves out by the log's rules, so that a host can say so; nothing is lost unseen.
class ExportNotices {
public:
    virtual ~ExportNotices() = default;

    /// A changed field had no caption, so it got no line. Called once per field and record.
    virtual void field_without_caption(std::string_view table, std::string_view column) = 0;

    /// A look-up failed and was answered with its default, as the rules want; `error` says why. Its answer
    /// may be missing from the file.
    virtual void lookup_failed(std::string_view error) = 0;

    /// The change document of this log record does not load, so the record got no line.
    virtual void unreadable_document(std::int64_t log_id) = 0;
};

}  // namespace prot
