#include <windows.h>

#include <aclapi.h>

#include <vector>

#include "platform/portable/files/remove_if_free.h"

namespace prot {

namespace {

bool belongs_to_this_user(HANDLE file) {
    HANDLE token = nullptr;
    if (OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &token) == 0) return false;
    DWORD size = 0;
    GetTokenInformation(token, TokenOwner, nullptr, 0, &size);
    std::vector<std::byte> user(size);
    const bool known = size > 0 && GetTokenInformation(token, TokenOwner, user.data(), size, &size) != 0;
    CloseHandle(token);
    PSID owner = nullptr;
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    if (!known || GetSecurityInfo(file, SE_FILE_OBJECT, OWNER_SECURITY_INFORMATION, &owner, nullptr, nullptr,
                                  nullptr, &descriptor) != ERROR_SUCCESS)
        return false;
    const bool same = EqualSid(owner, reinterpret_cast<const TOKEN_OWNER*>(user.data())->Owner) != FALSE;
    LocalFree(descriptor);
    return same;
}

}  // namespace

void remove_if_free(const std::filesystem::path& file) {
    // Shared with nobody: whoever is writing the file has it open.
    const HANDLE handle = CreateFileW(file.c_str(), DELETE | READ_CONTROL | FILE_READ_ATTRIBUTES, 0, nullptr,
                                      OPEN_EXISTING, FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
    if (handle == INVALID_HANDLE_VALUE) return;
    FILE_DISPOSITION_INFO disposition = {TRUE};
    if (belongs_to_this_user(handle))
        SetFileInformationByHandle(handle, FileDispositionInfo, &disposition, sizeof disposition);
    CloseHandle(handle);
}

}  // namespace prot
