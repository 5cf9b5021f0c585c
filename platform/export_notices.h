#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "platform/batch_reading.h"

namespace prot {

/// Why a record of the log got no line.
enum class NoLine : std::uint8_t {
    none,                 ///< it got lines
    not_described,        ///< its section does not describe it
    without_moment,       ///< it has no moment, and its section exports none without
    unreadable_document,  ///< its change document does not load
    without_changes,      ///< its change document is empty or names no field
    no_field_exported,    ///< each changed field is never exported, or has no caption
};

/// Hears how a run reads its batch text, what it makes of the log and what it leaves out by the log's rules,
/// so that a host can say so; nothing is lost unseen.
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

    /// A record of the log was read and got this many lines; `why` when it got none. Behind what else is told
    /// of it.
    virtual void record_read(std::int64_t log_id, std::int64_t lines, NoLine why) = 0;

    /// A batch text is about to be read: the section's keys, as items are compared with them. They live as
    /// long as the program.
    virtual void batch_keys(std::span<const std::string_view> /*keys*/) {}

    /// An item of the batch text has been read. Once for each, in the order in which the section reads them;
    /// then for each that is not read; then for what shows only when all are known, under the key concerned.
    virtual void batch_item(const BatchReading& /*reading*/) {}
};

}  // namespace prot
