#pragma once

#include <string>
#include <string_view>

namespace prot::odbc_double {

/// A text that was sent, in one line: as scripts look for it and journals tell it.
std::string one_line(std::string_view text);

/// The file in which a server tells what it was sent: a line for each text, the connection's number and a
/// colon before it. What a driver is asked beside texts stands in brackets: "2: [commit]".
class Journal {
public:
    /// Gives the connection its number: 1 for the first of this process that writes to `path`. Empty: there
    /// is no journal.
    explicit Journal(std::string path);

    void write(std::string_view line) const;

private:
    std::string path_;
    int connection_ = 0;
};

}  // namespace prot::odbc_double
