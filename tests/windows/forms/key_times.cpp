#include "tests/windows/forms/key_times.h"

#include <windows.h>

#include <algorithm>
#include <chrono>

#include "platform/windows/text/wide_text.h"

namespace prot::demo {

namespace {

constexpr UINT time_to_stand = 500;  // milliseconds
constexpr wchar_t typed[] = L"h\u00e4ndler 1234\b\b\b\b\b\b\b\b\b\b\b\b17";

std::wstring caption;
std::function<void(std::string)> tell;

double milliseconds_of(HWND window, HWND line, wchar_t letter) {
    const auto start = std::chrono::steady_clock::now();
    SendMessageW(line, WM_CHAR, static_cast<WPARAM>(letter), 1);
    RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

void CALLBACK type(HWND, UINT, UINT_PTR timer, DWORD) {
    KillTimer(nullptr, timer);
    const HWND window = FindWindowW(nullptr, caption.c_str());
    const HWND line = FindWindowExW(window, nullptr, L"Edit", nullptr);
    double slowest = 0;
    for (const wchar_t* letter = typed; line && *letter; ++letter)
        slowest = std::max(slowest, milliseconds_of(window, line, *letter));
    tell(line ? "slowest key: " + std::to_string(static_cast<int>(slowest) + 1) : "no line");
    PostMessageW(window, WM_CLOSE, 0, 0);
}

}  // namespace

void show_and_type(Form& form, const std::function<void()>& show, std::function<void(std::string)> log) {
    caption = to_wide(form.caption);
    tell = std::move(log);
    SetTimer(nullptr, 0, time_to_stand, type);
    show();
}

}  // namespace prot::demo
