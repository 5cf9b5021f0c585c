#pragma once

#include "core/section_table.h"
#include "tests/com/record/recording_writer.h"

namespace prot::recording {

/// The sections of the program, each of which writes down its run: what it was asked for, every statement
/// with its answer, how often it told its progress, and the error that it ended with. The records, by their
/// first field:
///   request           section, user, from, to, events, parameter text, "delete" or "export"
///   query_value       statement, cell
///   query_array       statement, columns, rows; then a record "row" of cells for each row
///   execute           statement
///   date_literal      date, literal
///   like_wildcard     wildcard
///   connection_info   the name of the database server
///   failure           statement, error number, source, description: the statement failed
///   progress          calls of gRefresh, calls of gSetFortschritt
///   error             number, source, description: how the run ended for its caller
/// Every answer is the one to its statement whenever it is asked; a statement asked twice is written once.
/// One table at a time; `writer` outlives it.
SectionTable recording_sections(RecordingWriter& writer);

}  // namespace prot::recording
