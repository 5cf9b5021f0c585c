#include "platform/windows/system/save_dialog.h"

#include <windows.h>

#include <cderr.h>
#include <commdlg.h>

#include <algorithm>
#include <vector>

#include "platform/windows/forms/dialog_window.h"
#include "platform/windows/text/wide_text.h"

namespace prot {

namespace {

constexpr std::string_view box_title = "Protokollierung";
constexpr std::size_t longest_path = 32768;

// Pairs of a text and its pattern, each ended by a zero; the literal's own ends them all.
constexpr wchar_t filters[] = L"CSV-Dateien (*.csv)\0*.csv\0Alle Dateien (*.*)\0*.*\0";

struct Answer {
    std::string path;  ///< empty: cancelled
    DWORD error = 0;   ///< of the dialog; 0: none
};

Answer ask_once(const std::string& suggestion, const std::string& folder) {
    const std::wstring proposed = to_wide(suggestion), initial = to_wide(folder);
    std::vector<wchar_t> path(longest_path);
    if (proposed.size() < path.size()) std::ranges::copy(proposed, path.begin());
    OPENFILENAMEW dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = owner_window();
    dialog.lpstrFilter = filters;
    dialog.lpstrFile = path.data();
    dialog.nMaxFile = static_cast<DWORD>(path.size());
    dialog.lpstrInitialDir = initial.empty() ? nullptr : initial.c_str();
    dialog.lpstrDefExt = L"csv";
    dialog.Flags = OFN_EXPLORER | OFN_ENABLESIZING | OFN_OVERWRITEPROMPT | OFN_PATHMUSTEXIST |
                   OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
    if (GetSaveFileNameW(&dialog)) return {to_utf8(path.data())};
    return {{}, CommDlgExtendedError()};
}

/// A suggestion that is no file name is left out.
Answer ask_person(const std::string& suggestion, const std::string& folder) {
    Answer answer = ask_once(suggestion, folder);
    if (answer.error == FNERR_INVALIDFILENAME) answer = ask_once({}, folder);
    return answer;
}

/// What replacing an existing file would meet; ERROR_SUCCESS when nothing stands against it.
DWORD replacing_error(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0)
        return ERROR_ACCESS_DENIED;  // also where the user may write such a file, as administrators may
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE | DELETE, 0, nullptr, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return GetLastError();
    CloseHandle(file);
    return ERROR_SUCCESS;
}

}  // namespace

std::optional<std::string> SaveDialog::ask(const std::string& suggestion, const std::string& folder) {
    std::string proposed = suggestion;
    while (can_show_windows()) {
        const Answer answer = ask_person(proposed, folder);
        if (answer.error != 0) break;
        if (answer.path.empty()) return std::nullopt;
        const std::string reason = reason_not_to_replace(answer.path);
        if (reason.empty()) return answer.path;
        boxes_.show(reason, BoxStyle::exclamation, box_title);
        proposed = answer.path;
    }
    refused_();
    return std::nullopt;
}

std::string reason_not_to_replace(const std::string& path) {
    switch (replacing_error(to_wide(path))) {
        case ERROR_SHARING_VIOLATION:
        case ERROR_LOCK_VIOLATION:
            return "Die Datei „" + path +
                   "“ ist in einem anderen Programm geöffnet.\r\n\r\nBitte schließen Sie sie dort, oder "
                   "wählen "
                   "Sie einen anderen Namen.";
        case ERROR_ACCESS_DENIED:
            return "Die Datei „" + path +
                   "“ ist schreibgeschützt, oder Sie dürfen sie nicht ändern.\r\n\r\nBitte wählen Sie einen "
                   "anderen Namen.";
        default:
            return {};
    }
}

}  // namespace prot
