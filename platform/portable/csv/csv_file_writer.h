#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/csv_writer.h"
#include "platform/portable/csv/csv_encoding.h"
#include "platform/portable/files/atomic_file.h"

namespace prot {

struct CsvFileOptions {
    std::filesystem::path output;  ///< the name of every file, whoever would be asked; empty: the exporter's
    Existing existing_output = Existing::replaced;  ///< what becomes of a file of that name
    std::filesystem::path folder;  ///< where relative file names lie; made when it does not exist
    std::vector<std::filesystem::path>
        never_replaced;           // files of the same run that a person might name by mistake
    std::string separator = ";";  ///< one character that the encoding holds; not a quote, CR or LF
    CsvEncoding encoding = CsvEncoding::utf8_bom;
    bool raw_cells = false;  ///< true: formula guards (leading apostrophes) are left out
};

/// What a CSV file writer asks of and tells the program it works in.
class CsvFileHost {
public:
    virtual ~CsvFileHost() = default;

    /// The person's choice of a file name, empty to take the suggestion; nothing when the person cancels.
    virtual std::optional<std::string> ask_file_name(const std::string& suggestion) = 0;

    /// No file can be made under the name that was chosen. Whether to ask for another; when not, the run
    /// fails with `reason`.
    virtual bool asks_again(const AutomationError& /*reason*/) { return false; }

    /// A temporary file of this path is about to be made (removed when the program is stopped); empty: there
    /// is none.
    virtual void unfinished_file(const std::string& path) = 0;

    /// The file is complete under this path.
    virtual void file_finished(const std::string& path) = 0;

    /// The encoding cannot hold some characters of the file; they became question marks. Once per file.
    virtual void characters_replaced(const std::string& path, const ReplacedCharacters& characters) = 0;

    /// A file begins, and bytes of it have been written; in their order, many at once.
    virtual void file_begins() {}
    virtual void bytes_written(std::string_view /*bytes*/) {}

    /// Present the finished file to the person.
    virtual void show_file(const std::string& path) = 0;
};

/// Writes CSV files for spreadsheets: lines end in CR LF; a cell is quoted only when it holds the separator,
/// a double quote, CR or LF, quotes inside doubled (RFC 4180). A cell that begins with = + - @ TAB or CR and
/// is not a number (optional sign, digits, at most one point or comma) gets a leading apostrophe, so that a
/// spreadsheet does not run it. The file is written under a temporary name of its own in the target's folder,
/// readable by its owner only, and renamed over the target by close, which also gives it the permissions of
/// the user's umask. A name that nobody chose (open without ask_user) replaces nothing: the file gets
/// -2, -3 and so on before its extension where others have it. A target that a person chose and that is not a
/// regular file (a device, a pipe) is written directly. A writer that is destroyed before close removes its
/// temporary file. Every failure is an AutomationError (ErrorNumber::file, source "CsvFileWriter") that names
/// the path; it ends the file, of which nothing is left, and until the next open there is no file to write
/// to.
class CsvFileWriter : public CsvWriter {
public:
    /// `host` and `files` outlive the writer.
    CsvFileWriter(CsvFileOptions options, CsvFileHost& host, FileLayer& files = system_files());
    ~CsvFileWriter() override;

    bool open(std::string& file_name, bool ask_user) override;
    void write_line(std::span<const std::string> cells) override;
    void close() override;
    void show() override;

private:
    class Impl;
    std::unique_ptr<Impl> impl_;
};

}  // namespace prot
