#include <windows.h>

#include <aclapi.h>

#include <cstddef>
#include <memory>
#include <vector>

#include "platform/portable/files/remove_if_free.h"

namespace prot {

namespace {

struct HandleCloser {
    using pointer = HANDLE;
    void operator()(HANDLE handle) const noexcept { CloseHandle(handle); }
};
using OwnedHandle = std::unique_ptr<HANDLE, HandleCloser>;

struct LocalMemory {
    void operator()(void* memory) const noexcept { LocalFree(memory); }
};

/// The SID that stands first in what the token says: its user, or whom its new files belong to.
bool is_in_token(HANDLE token, TOKEN_INFORMATION_CLASS what, PSID owner) {
    DWORD size = 0;
    GetTokenInformation(token, what, nullptr, 0, &size);
    if (size < sizeof(PSID)) return false;
    std::vector<std::byte> information(size);
    return GetTokenInformation(token, what, information.data(), size, &size) != 0 &&
           EqualSid(*reinterpret_cast<PSID*>(information.data()), owner) != 0;
}

/// Files of an administrator may belong to the group of all of them.
bool is_of_this_user(HANDLE file) {
    PSID owner = nullptr;
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    if (GetSecurityInfo(file, SE_FILE_OBJECT, OWNER_SECURITY_INFORMATION, &owner, nullptr, nullptr, nullptr,
                        &descriptor) != ERROR_SUCCESS)
        return false;
    const std::unique_ptr<void, LocalMemory> kept(descriptor);
    HANDLE opened = nullptr;
    if (owner == nullptr || OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &opened) == 0) return false;
    const OwnedHandle token(opened);
    return is_in_token(token.get(), TokenUser, owner) || is_in_token(token.get(), TokenOwner, owner);
}

}  // namespace

// A program that writes the file lets nobody else write it, so that whoever may has it alone. A link is not
// followed.
void remove_if_free(const std::filesystem::path& file) {
    const HANDLE opened = CreateFileW(file.c_str(), GENERIC_WRITE | DELETE | READ_CONTROL, 0, nullptr,
                                      OPEN_EXISTING, FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
    if (opened == INVALID_HANDLE_VALUE) return;
    const OwnedHandle alone(opened);
    if (!is_of_this_user(opened)) return;
    FILE_DISPOSITION_INFO disposition{TRUE};
    SetFileInformationByHandle(opened, FileDispositionInfo, &disposition, sizeof disposition);
}

}  // namespace prot
