#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "platform/windows/wide_text.h"

/// What a person sees of a window. Usage: window_dump TITLE [SECONDS]
/// Waits until a window is on view whose title begins with TITLE (ASCII, as other letters depend on the
/// caller's locale), and prints it and its controls, one a line, fields separated by TAB: class, id, text,
/// "on" or "off", "visible" or "hidden", "focus" or "-", left, top, width, height on the screen. The text of
/// an option that is chosen is followed by " (*)". Exit status 1 when no such window came (10 seconds unless
/// told).
namespace {

constexpr DWORD pause = 20;  // milliseconds

std::string class_of(HWND window) {
    wchar_t name[64] = {};
    GetClassNameW(window, name, 64);
    std::string text = prot::to_utf8(name);
    std::ranges::transform(text, text.begin(),
                           [](char c) { return c >= 'a' && c <= 'z' ? char(c - 32) : c; });
    return text;
}

std::string text_of(HWND window) {
    std::wstring text(4096, L'\0');
    const LRESULT size = SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(size));
    std::string line;
    for (const char letter : prot::to_utf8(text))
        line += letter == '\r' ? "\\r" : letter == '\n' ? "\\n" : std::string(1, letter);
    if (class_of(window) == "BUTTON" && SendMessageW(window, BM_GETCHECK, 0, 0) == BST_CHECKED)
        line += " (*)";
    return line;
}

HWND focus_of(HWND window) {
    GUITHREADINFO thread{};
    thread.cbSize = sizeof thread;
    GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &thread);
    return thread.hwndFocus;
}

void print_window(HWND window, HWND focus) {
    RECT place{};
    GetWindowRect(window, &place);
    std::printf("%s\t%ld\t%s\t%s\t%s\t%s\t%ld\t%ld\t%ld\t%ld\n", class_of(window).c_str(),
                static_cast<long>(GetWindowLongW(window, GWL_ID)), text_of(window).c_str(),
                IsWindowEnabled(window) ? "on" : "off", IsWindowVisible(window) ? "visible" : "hidden",
                window == focus ? "focus" : "-", place.left, place.top, place.right - place.left,
                place.bottom - place.top);
}

BOOL CALLBACK print_child(HWND child, LPARAM focus) {
    print_window(child, reinterpret_cast<HWND>(focus));
    return TRUE;
}

struct Search {
    std::wstring title;
    HWND found = nullptr;
};

BOOL CALLBACK compare_title(HWND window, LPARAM parameter) {
    Search& search = *reinterpret_cast<Search*>(parameter);
    std::wstring title(256, L'\0');
    title.resize(static_cast<std::size_t>(GetWindowTextW(window, title.data(), 256)));
    if (IsWindowVisible(window) && title.starts_with(search.title)) search.found = window;
    return search.found == nullptr;
}

}  // namespace

int wmain(int argument_count, wchar_t** arguments) {
    if (argument_count < 2) return 2;
    const DWORD patience = 1000 * (argument_count > 2 ? wcstoul(arguments[2], nullptr, 10) : 10);
    Search search{arguments[1]};
    const DWORD start = GetTickCount();
    do {
        EnumWindows(compare_title, reinterpret_cast<LPARAM>(&search));
        if (!search.found) Sleep(pause);
    } while (!search.found && GetTickCount() - start < patience);
    if (!search.found) return 1;
    const HWND focus = focus_of(search.found);
    print_window(search.found, focus);
    EnumChildWindows(search.found, print_child, reinterpret_cast<LPARAM>(focus));
    return 0;
}
