#include <windows.h>

#include <algorithm>
#include <iterator>

#include "platform/portable/files/windows_error.h"

namespace prot {

namespace {

struct Meaning {
    DWORD code;
    std::errc condition;
};

// The standard library's own table is made for programs: what a person did wrong (an impossible name, say)
// is not told from what is missing.
// clang-format off
constexpr Meaning meanings[] = {
    {ERROR_FILE_NOT_FOUND,         std::errc::no_such_file_or_directory},
    {ERROR_PATH_NOT_FOUND,         std::errc::no_such_file_or_directory},
    {ERROR_INVALID_DRIVE,          std::errc::no_such_file_or_directory},
    {ERROR_BAD_NETPATH,            std::errc::no_such_file_or_directory},
    {ERROR_BAD_NET_NAME,           std::errc::no_such_file_or_directory},
    {ERROR_ACCESS_DENIED,          std::errc::permission_denied},
    {ERROR_NETWORK_ACCESS_DENIED,  std::errc::permission_denied},
    {ERROR_WRITE_PROTECT,          std::errc::read_only_file_system},
    {ERROR_SHARING_VIOLATION,      std::errc::device_or_resource_busy},
    {ERROR_LOCK_VIOLATION,         std::errc::device_or_resource_busy},
    {ERROR_USER_MAPPED_FILE,       std::errc::device_or_resource_busy},
    {ERROR_PIPE_BUSY,              std::errc::device_or_resource_busy},
    {ERROR_DISK_FULL,              std::errc::no_space_on_device},
    {ERROR_HANDLE_DISK_FULL,       std::errc::no_space_on_device},
    {ERROR_FILE_TOO_LARGE,         std::errc::file_too_large},
    {ERROR_INVALID_NAME,           std::errc::invalid_argument},
    {ERROR_BAD_PATHNAME,           std::errc::invalid_argument},
    {ERROR_FILENAME_EXCED_RANGE,   std::errc::filename_too_long},
    {ERROR_FILE_EXISTS,            std::errc::file_exists},
    {ERROR_ALREADY_EXISTS,         std::errc::file_exists},
    {ERROR_DIRECTORY,              std::errc::not_a_directory},
    {ERROR_CANT_RESOLVE_FILENAME,  std::errc::too_many_symbolic_link_levels},
    {ERROR_TOO_MANY_OPEN_FILES,    std::errc::too_many_files_open},
    {ERROR_NOT_ENOUGH_MEMORY,      std::errc::not_enough_memory},
    {ERROR_OUTOFMEMORY,            std::errc::not_enough_memory},
    {ERROR_NOT_READY,              std::errc::no_such_device},
    {ERROR_NO_MEDIA_IN_DRIVE,      std::errc::no_such_device},
    {ERROR_DEVICE_NOT_CONNECTED,   std::errc::no_such_device},
    {ERROR_DEV_NOT_EXIST,          std::errc::no_such_device},
    {ERROR_CRC,                    std::errc::io_error},
    {ERROR_SEEK,                   std::errc::io_error},
    {ERROR_WRITE_FAULT,            std::errc::io_error},
    {ERROR_GEN_FAILURE,            std::errc::io_error},
    {ERROR_IO_DEVICE,              std::errc::io_error},
    {ERROR_NETNAME_DELETED,        std::errc::io_error},
    {ERROR_UNEXP_NET_ERR,          std::errc::io_error},
    {ERROR_BROKEN_PIPE,            std::errc::broken_pipe},
    {ERROR_NO_DATA,                std::errc::broken_pipe},
};
// clang-format on

}  // namespace

std::error_code windows_error(unsigned long code) {
    const auto* const found = std::ranges::find(meanings, code, &Meaning::code);
    if (found != std::end(meanings)) return std::make_error_code(found->condition);
    return {static_cast<int>(code), std::system_category()};
}

}  // namespace prot
