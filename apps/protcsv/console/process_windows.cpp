#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <shellapi.h>

#include <cstdio>
#include <iostream>
#include <memory>
#include <new>

#include "apps/protcsv/console/console_text_windows.h"
#include "apps/protcsv/console/process.h"
#include "platform/windows/text/wide_text.h"

namespace prot {

namespace {

bool is_console(HANDLE handle) {
    DWORD mode = 0;
    return GetConsoleMode(handle, &mode) != 0;
}

bool leads_anywhere(DWORD which) {
    const HANDLE handle = GetStdHandle(which);
    return handle != nullptr && handle != INVALID_HANDLE_VALUE && GetFileType(handle) != FILE_TYPE_UNKNOWN;
}

bool write_to(HANDLE console, std::wstring_view text) {
    DWORD written = 0;
    return WriteConsoleW(console, text.data(), static_cast<DWORD>(text.size()), &written, nullptr) != 0 &&
           written == text.size();
}

std::wstring read_from(HANDLE console) {
    std::wstring text(4096, L'\0');
    DWORD size = 0;
    // Ctrl-C breaks reading off before the program is stopped; until then it goes on.
    do {
        SetLastError(ERROR_SUCCESS);
        if (ReadConsoleW(console, text.data(), static_cast<DWORD>(text.size()), &size, nullptr) == 0)
            return {};
    } while (size == 0 && GetLastError() == ERROR_OPERATION_ABORTED);
    text.resize(size);
    return text;
}

/// Takes everything and keeps nothing.
class Nowhere : public std::streambuf {
    int_type overflow(int_type c) override { return traits_type::not_eof(c); }
};

std::size_t columns_of_standard_error() {
    constexpr std::size_t usual = 80;
    CONSOLE_SCREEN_BUFFER_INFO info{};
    if (GetConsoleScreenBufferInfo(GetStdHandle(STD_ERROR_HANDLE), &info) == 0) return usual;
    const int between = info.srWindow.Right - info.srWindow.Left;
    return static_cast<std::size_t>(between) + 1;
}

struct LocalMemory {
    void operator()(LPWSTR* memory) const noexcept { LocalFree(memory); }
};

/// Lets a stream that leads to a console go by way of a buffer of the type `Buffer`. Any other takes and
/// gives bytes as they are, the same as on other systems: no CR is added or taken away. Returns whether it is
/// a console.
template <typename Buffer, typename Transfer>
bool set_up(std::ios& stream, std::FILE* file, DWORD which, Transfer transfer) {
    const HANDLE handle = GetStdHandle(which);
    if (!is_console(handle)) {
        _setmode(_fileno(file), _O_BINARY);
        return false;
    }
    // Never destroyed: the standard streams are flushed behind everything else.
    stream.rdbuf(new Buffer([=](auto... text) { return transfer(handle, text...); }));
    return true;
}

}  // namespace

std::vector<std::string> process_arguments(int /*argument_count*/, char** /*arguments*/) {
    // Those of main are in the code page of the system, which holds a part of all characters only.
    int count = 0;
    const std::unique_ptr<LPWSTR[], LocalMemory> wide(CommandLineToArgvW(GetCommandLineW(), &count));
    if (!wide) throw std::bad_alloc();
    std::vector<std::string> texts;
    for (int i = 1; i < count; ++i) texts.push_back(to_utf8(wide[static_cast<std::size_t>(i)]));
    return texts;
}

std::optional<std::string> take_from_environment(const std::string& name) {
    const std::wstring wide = to_wide(name);
    std::wstring value(GetEnvironmentVariableW(wide.c_str(), nullptr, 0), L'\0');
    if (value.empty()) return std::nullopt;
    value.resize(GetEnvironmentVariableW(wide.c_str(), value.data(), static_cast<DWORD>(value.size())));
    SetEnvironmentVariableW(wide.c_str(), nullptr);
    return to_utf8(value);
}

Console standard_console() {
    const bool in_is_console = set_up<ConsoleInput>(std::cin, stdin, STD_INPUT_HANDLE, read_from);
    set_up<ConsoleOutput>(std::cout, stdout, STD_OUTPUT_HANDLE, write_to);
    const bool err_is_console = set_up<ConsoleOutput>(std::cerr, stderr, STD_ERROR_HANDLE, write_to);
    // Started without a console, and nobody reads the standard streams: then windows are how to talk.
    const bool alone = GetConsoleWindow() == nullptr && !leads_anywhere(STD_INPUT_HANDLE) &&
                       !leads_anywhere(STD_ERROR_HANDLE);
    // Writing to a stream that is not there fails; a run that a person was told of has not failed.
    if (alone && !leads_anywhere(STD_OUTPUT_HANDLE)) std::cout.rdbuf(new Nowhere);
    return {std::cin,      std::cout,      std::cerr,
            in_is_console, err_is_console, alone,
            false,         false,          columns_of_standard_error};
}

}  // namespace prot
