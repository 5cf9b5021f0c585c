#pragma once

#include <system_error>

namespace prot {

/// The error of a Windows file function, `code` from GetLastError, as the std::errc that file_error has a
/// reason for; other codes as they are, in the system's category.
std::error_code windows_error(unsigned long code);

}  // namespace prot
