#pragma once

#include <array>
#include <cstddef>
#include <istream>
#include <ostream>
#include <streambuf>
#include <string>
#include <string_view>
#include <vector>

#include "core/section_table.h"

namespace prot::faults {

/// Keeps what is written to it in a place of fixed size, so that it takes text when no memory is left. What
/// goes beyond is lost.
class FixedText : public std::streambuf {
public:
    FixedText() { clear(); }
    void clear() { setp(text_.data(), text_.data() + text_.size()); }
    std::string_view text() const { return {pbase(), static_cast<std::size_t>(pptr() - pbase())}; }

private:
    std::array<char, 1 << 16> text_{};
};

/// A text to be read, where it lies.
class ReadText : public std::streambuf {
public:
    explicit ReadText(std::string& text) { setg(text.data(), text.data(), text.data() + text.size()); }
};

/// The whole program in this process. Its own streams take no memory, so that a run can be told apart from
/// what surrounds it.
class WholeProgram {
public:
    /// arguments: without the program's name.
    explicit WholeProgram(std::vector<std::string> arguments, std::string input = {})
        : arguments_(std::move(arguments)), input_(std::move(input)) {}

    /// Returns the exit status. An exception that leaves the program leaves run too.
    int run(SectionTable sections);

    std::string output() const { return std::string(out_.text()); }
    std::string errors() const { return std::string(err_.text()); }

private:
    std::vector<std::string> arguments_;
    std::string input_;
    FixedText out_, err_;
};

}  // namespace prot::faults
