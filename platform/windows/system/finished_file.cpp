#include "platform/windows/system/finished_file.h"

#include <windows.h>

#include <shellapi.h>

#include "platform/windows/com/com_error.h"
#include "platform/windows/forms/dialog_window.h"
#include "platform/windows/text/wide_text.h"

namespace prot {

namespace {

/// The program need not start in the folder that `path` is relative to.
std::wstring whole_path(const std::wstring& path) {
    std::wstring whole(GetFullPathNameW(path.c_str(), 0, nullptr, nullptr), L'\0');
    const DWORD size =
        GetFullPathNameW(path.c_str(), static_cast<DWORD>(whole.size()), whole.data(), nullptr);
    if (size == 0 || size >= whole.size()) return path;
    whole.resize(size);
    return whole;
}

}  // namespace

std::optional<std::string> open_with_registered_program(const std::string& path) {
    const std::wstring whole = whole_path(to_wide(path));
    SHELLEXECUTEINFOW call{};
    call.cbSize = sizeof call;
    call.fMask = SEE_MASK_FLAG_NO_UI | SEE_MASK_NOASYNC;
    call.hwnd = owner_window();
    call.lpVerb = L"open";
    call.lpFile = whole.c_str();
    call.nShow = SW_SHOWNORMAL;
    if (ShellExecuteExW(&call)) return std::nullopt;
    std::string reason = system_text(HRESULT_FROM_WIN32(GetLastError()));
    if (reason.find('%') != std::string::npos) reason.clear();  // a text with a gap in it
    return to_utf8(whole) + (reason.empty() ? std::string() : "\r\n\r\n" + reason);
}

void open_finished_file(const std::string& path, MessageBoxes& boxes) {
    if (const std::optional<std::string> problem = open_with_registered_program(path))
        boxes.show("Die Datei wurde geschrieben, lässt sich aber nicht öffnen:\r\n" + *problem,
                   BoxStyle::exclamation, "Protokollierung");
}

}  // namespace prot
