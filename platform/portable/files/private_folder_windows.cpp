#include <windows.h>

#include <aclapi.h>
#include <sddl.h>

#include <memory>
#include <string>
#include <vector>

#include "platform/portable/files/atomic_file.h"
#include "platform/portable/files/numbered_name.h"
#include "platform/portable/files/private_folder.h"
#include "platform/portable/files/windows_error.h"

namespace prot {

namespace {

namespace fs = std::filesystem;

std::error_code last_error() { return windows_error(GetLastError()); }

struct LocalFreer {
    void operator()(void* memory) const { LocalFree(memory); }
};

/// The user that the program runs as, as security descriptors write it; empty when that is not to be had.
std::wstring user_text() {
    HANDLE token = nullptr;
    if (OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &token) == 0) return {};
    DWORD size = 0;
    GetTokenInformation(token, TokenUser, nullptr, 0, &size);
    std::vector<std::byte> user(size);
    LPWSTR text = nullptr;
    if (size > 0 && GetTokenInformation(token, TokenUser, user.data(), size, &size) != 0)
        ConvertSidToStringSidW(reinterpret_cast<const TOKEN_USER*>(user.data())->User.Sid, &text);
    CloseHandle(token);
    const std::unique_ptr<WCHAR, LocalFreer> owner(text);
    return text == nullptr ? std::wstring() : std::wstring(text);
}

using Descriptor = std::unique_ptr<void, LocalFreer>;

/// Full access for the user, for what is in the folder, too; nothing from the folder above, and nobody else.
Descriptor owner_alone() {
    const std::wstring user = user_text();
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    if (!user.empty())
        ConvertStringSecurityDescriptorToSecurityDescriptorW((L"D:P(A;OICI;FA;;;" + user + L")").c_str(),
                                                             SDDL_REVISION_1, &descriptor, nullptr);
    return Descriptor(descriptor);
}

}  // namespace

fs::path make_private_folder(const fs::path& place) {
    const Descriptor descriptor = owner_alone();
    if (!descriptor) throw folder_error(place, last_error());
    SECURITY_ATTRIBUTES attributes = {sizeof attributes, descriptor.get(), FALSE};
    for (int number = 1; number <= most_numbered_names; ++number) {
        const fs::path folder = numbered_name(place, number);
        if (CreateDirectoryW(folder.c_str(), &attributes) != 0) return folder;
        if (GetLastError() != ERROR_ALREADY_EXISTS) throw folder_error(folder, last_error());
    }
    throw folder_error(place, std::make_error_code(std::errc::file_exists));
}

void make_private(const fs::path& /*file*/) {}

bool is_private(const fs::path& /*file*/) { return true; }

void flush_file(const fs::path& file) {
    const HANDLE handle = CreateFileW(file.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                      OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE) throw file_error(file, last_error());
    const BOOL flushed = FlushFileBuffers(handle);
    const std::error_code error = last_error();
    CloseHandle(handle);
    if (flushed == 0) throw file_error(file, error);
}

void flush_folder(const fs::path& /*folder*/) {}

}  // namespace prot
