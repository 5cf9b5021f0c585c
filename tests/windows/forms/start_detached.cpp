#include <windows.h>

#include <string>
#include <string_view>

/// Starts a program as a shortcut on the desktop does: without a console, and with no standard streams.
/// Usage: start_detached PROGRAM [ARGUMENT...]. Ends with that program's exit status, 255 when it does not
/// start.
namespace {

constexpr int not_started = 255;

/// What stands behind this program's own name on its command line.
std::wstring rest_of_command_line() {
    std::wstring_view line = GetCommandLineW();
    const bool quoted = line.starts_with(L'"');
    const std::size_t end = line.find(quoted ? L'"' : L' ', 1);
    line.remove_prefix(end == line.npos ? line.size() : end + 1);
    const std::size_t begin = line.find_first_not_of(L' ');
    return std::wstring(begin == line.npos ? L"" : line.substr(begin));
}

}  // namespace

int main() {
    std::wstring command_line = rest_of_command_line();
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;  // and none of them
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(nullptr, command_line.data(), nullptr, nullptr, FALSE, DETACHED_PROCESS, nullptr,
                        nullptr, &startup, &process))
        return not_started;
    WaitForSingleObject(process.hProcess, INFINITE);
    DWORD status = not_started;
    GetExitCodeProcess(process.hProcess, &status);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return static_cast<int>(status);
}
