#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <cstdio>
#include <iostream>
#include <string>

#include "platform/windows/text/wide_text.h"

/// What a person sees of windows. Stays for as long as standard input lasts, because starting a program takes
/// longer than looking. Each line of input is SECONDS TITLE (UTF-8): waits that long for a window on view
/// whose title begins with TITLE, and prints it and its controls, one a line, fields separated by TAB: class,
/// id, text, "on" or "off", "visible" or "hidden", "focus" or "-", left, top, width, height on the screen, a
/// list's entries, the first hundred, with commas between them. The text of an option that is chosen is
/// followed by " (*)"; of a list view there are the rows on view, columns separated by a blank, "> " before
/// the selected one. A line "." ends each answer; it is alone when no such window came.
namespace {

constexpr DWORD pause = 20;  // milliseconds
constexpr LRESULT most_entries = 100;

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

/// Memory in the process of another window, which answers only into its own.
class ForeignMemory {
public:
    ForeignMemory(HWND window, std::size_t size) {
        DWORD id = 0;
        GetWindowThreadProcessId(window, &id);
        process_ = OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, id);
        address_ = static_cast<char*>(
            VirtualAllocEx(process_, nullptr, size, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE));
    }
    ~ForeignMemory() {
        VirtualFreeEx(process_, address_, 0, MEM_RELEASE);
        CloseHandle(process_);
    }
    ForeignMemory(const ForeignMemory&) = delete;
    ForeignMemory& operator=(const ForeignMemory&) = delete;

    char* at(std::size_t offset) const { return address_ + offset; }
    void write(const void* data, std::size_t size) const {
        WriteProcessMemory(process_, address_, data, size, nullptr);
    }
    void read(std::size_t offset, void* data, std::size_t size) const {
        ReadProcessMemory(process_, at(offset), data, size, nullptr);
    }

private:
    HANDLE process_;
    char* address_;
};

std::string cell_of(HWND list, const ForeignMemory& memory, LRESULT row, int column) {
    wchar_t text[128] = {};
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = reinterpret_cast<wchar_t*>(memory.at(sizeof item));
    item.cchTextMax = 128;
    memory.write(&item, sizeof item);
    SendMessageW(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(memory.at(0)));
    memory.read(sizeof item, text, sizeof text);
    text[127] = 0;
    return prot::to_utf8(text);
}

std::string rows_of(HWND list) {
    const ForeignMemory memory(list, sizeof(LVITEMW) + 128 * sizeof(wchar_t));
    const LRESULT first = SendMessageW(list, LVM_GETTOPINDEX, 0, 0);
    const LRESULT end = std::min(first + SendMessageW(list, LVM_GETCOUNTPERPAGE, 0, 0),
                                 SendMessageW(list, LVM_GETITEMCOUNT, 0, 0));
    std::string rows;
    for (LRESULT row = first; row < end; ++row) {
        const LRESULT state = SendMessageW(list, LVM_GETITEMSTATE, static_cast<WPARAM>(row), LVIS_SELECTED);
        rows += std::string(row > first ? "," : "") + ((state & LVIS_SELECTED) != 0 ? "> " : "") +
                cell_of(list, memory, row, 0) + ' ' + cell_of(list, memory, row, 1);
    }
    return rows;
}

std::string entries_of(HWND window) {
    std::string entries;
    if (class_of(window) == "SYSLISTVIEW32") return rows_of(window);
    if (class_of(window) != "COMBOBOX") return entries;
    const LRESULT count = std::min(SendMessageW(window, CB_GETCOUNT, 0, 0), most_entries);
    for (LRESULT entry = 0; entry < count; ++entry) {
        const auto index = static_cast<WPARAM>(entry);
        const LRESULT size = SendMessageW(window, CB_GETLBTEXTLEN, index, 0);
        if (size < 0) break;
        std::wstring text(static_cast<std::size_t>(size) + 1, L'\0');
        SendMessageW(window, CB_GETLBTEXT, index, reinterpret_cast<LPARAM>(text.data()));
        text.pop_back();
        entries += (entry > 0 ? "," : "") + prot::to_utf8(text);
    }
    return entries;
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
    std::printf("%s\t%ld\t%s\t%s\t%s\t%s\t%ld\t%ld\t%ld\t%ld\t%s\n", class_of(window).c_str(),
                static_cast<long>(GetWindowLongW(window, GWL_ID)), text_of(window).c_str(),
                IsWindowEnabled(window) ? "on" : "off", IsWindowVisible(window) ? "visible" : "hidden",
                window == focus ? "focus" : "-", place.left, place.top, place.right - place.left,
                place.bottom - place.top, entries_of(window).c_str());
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

HWND window_titled(const std::wstring& title, DWORD patience) {
    Search search{title};
    const DWORD start = GetTickCount();
    do {
        EnumWindows(compare_title, reinterpret_cast<LPARAM>(&search));
        if (!search.found) Sleep(pause);
    } while (!search.found && GetTickCount() - start < patience);
    return search.found;
}

void answer(const std::wstring& title, DWORD patience) {
    if (const HWND window = window_titled(title, patience)) {
        const HWND focus = focus_of(window);
        print_window(window, focus);
        EnumChildWindows(window, print_child, reinterpret_cast<LPARAM>(focus));
    }
    std::printf(".\n");
    std::fflush(stdout);
}

}  // namespace

int main() {
    _setmode(_fileno(stdout), _O_BINARY);
    std::string title;
    for (DWORD seconds = 0; std::cin >> seconds && std::getline(std::cin >> std::ws, title);) {
        if (title.ends_with('\r')) title.pop_back();
        answer(prot::to_wide(title), 1000 * seconds);
    }
}
