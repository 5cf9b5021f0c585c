#include <windows.h>

#include "platform/portable/files/folder_access.h"
#include "platform/portable/files/windows_error.h"

namespace prot {

std::error_code folder_refusal(const std::filesystem::path& folder) {
    // Only opening tells what the access control lists allow.
    const HANDLE handle = CreateFileW(folder.empty() ? L"." : folder.c_str(), FILE_ADD_FILE,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                      OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (handle == INVALID_HANDLE_VALUE) return windows_error(GetLastError());
    CloseHandle(handle);
    return {};
}

}  // namespace prot
