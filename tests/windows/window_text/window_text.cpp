#include <windows.h>

#include <cstdio>
#include <string>
#include <vector>

/// What a person would do with a message box. Usage: window_text TITLE [BUTTON]
/// Waits until a window is there whose title holds TITLE (ASCII, as other letters depend on the caller's
/// locale), prints its texts (title, then each child's, one a line, UTF-8, CR and LF as \r and \n) and
/// presses the button whose id BUTTON is (6 is Yes, 7 is No, 1 or 2 is OK). Exit status 1 when no such window
/// came within ten seconds, 2 when it did not close.
namespace {

constexpr DWORD patience = 10000;  // milliseconds
constexpr DWORD pause = 20;

std::string utf8(const std::wstring& text) {
    std::string bytes(text.size() * 3, '\0');
    bytes.resize(static_cast<std::size_t>(
        WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), bytes.data(),
                            static_cast<int>(bytes.size()), nullptr, nullptr)));
    return bytes;
}

void print_text(HWND window) {
    std::wstring text(4096, L'\0');
    const LRESULT size = SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(size));
    if (text.empty()) return;
    std::string line;
    for (const char letter : utf8(text))
        line += letter == '\r' ? "\\r" : letter == '\n' ? "\\n" : std::string(1, letter);
    std::printf("%s\n", line.c_str());
}

BOOL CALLBACK print_child(HWND child, LPARAM) {
    print_text(child);
    return TRUE;
}

/// What EnumWindows looks for, and what it found.
struct Search {
    std::wstring title;
    HWND found = nullptr;
};

BOOL CALLBACK compare_title(HWND window, LPARAM parameter) {
    Search& search = *reinterpret_cast<Search*>(parameter);
    std::wstring title(256, L'\0');
    title.resize(
        static_cast<std::size_t>(GetWindowTextW(window, title.data(), static_cast<int>(title.size()))));
    if (IsWindowVisible(window) && title.find(search.title) != std::wstring::npos) search.found = window;
    return search.found == nullptr;
}

template <class Condition>
bool comes_true(Condition condition) {
    for (const DWORD start = GetTickCount(); GetTickCount() - start < patience; Sleep(pause))
        if (condition()) return true;
    return false;
}

}  // namespace

int wmain(int argument_count, wchar_t** arguments) {
    if (argument_count < 2) return 1;
    Search search{arguments[1]};
    const auto appeared = [&search] {
        EnumWindows(compare_title, reinterpret_cast<LPARAM>(&search));
        return search.found != nullptr;
    };
    if (!comes_true(appeared)) return 1;
    const HWND window = search.found;
    print_text(window);
    EnumChildWindows(window, print_child, 0);
    if (argument_count < 3) return 0;
    PostMessageW(window, WM_COMMAND, wcstoul(arguments[2], nullptr, 10), 0);
    return comes_true([&] { return !IsWindow(window); }) ? 0 : 2;
}
