#pragma once

#include <span>
#include <string>

namespace prot {

/// Writes one CSV file. Separator, quoting, encoding and folder are the writer's. Usable for one file after
/// another.
class CsvWriter {
public:
    virtual ~CsvWriter() = default;

    /// Starts a file. ask_user: the person may choose another name, which then stands in `file_name`. False
    /// only when the person cancels. A file that cannot be written is an error that names the path.
    virtual bool open(std::string& file_name, bool ask_user) = 0;

    /// Writes one line; one element per cell.
    virtual void write_line(std::span<const std::string> cells) = 0;

    /// Completes the file. Until then an earlier file of the same name is whole.
    virtual void close() = 0;

    /// Presents the finished file to the person; interactive runs only.
    virtual void show() = 0;
};

}  // namespace prot
