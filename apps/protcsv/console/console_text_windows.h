#pragma once

#include <functional>
#include <streambuf>
#include <string>
#include <string_view>

/// A Windows console shows and gives UTF-16, the program writes and reads UTF-8. These stream buffers stand
/// between them, whatever code page the console is set to.
namespace prot {

/// Hands on what is written at each flush; a character whose bytes are not complete waits for its rest.
class ConsoleOutput : public std::streambuf {
public:
    /// `write` shows a text and says whether that went well.
    explicit ConsoleOutput(std::function<bool(std::wstring_view)> write) : write_(std::move(write)) {}

protected:
    int_type overflow(int_type c) override;
    std::streamsize xsputn(const char* text, std::streamsize size) override;
    int sync() override;

private:
    bool show();

    std::function<bool(std::wstring_view)> write_;
    std::string pending_;
};

/// Reads line by line. Ctrl-Z at the start of a line is the end of the input, as everywhere on Windows.
class ConsoleInput : public std::streambuf {
public:
    /// `read` waits for the person and returns what was typed, as a rule a line with its CR LF; empty at the
    /// end of the input.
    explicit ConsoleInput(std::function<std::wstring()> read) : read_(std::move(read)) {}

protected:
    int_type underflow() override;

private:
    std::function<std::wstring()> read_;
    std::string text_;
};

}  // namespace prot
