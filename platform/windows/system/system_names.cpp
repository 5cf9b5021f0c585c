#include "platform/windows/system/system_names.h"

#include <windows.h>

#include "platform/windows/text/wide_text.h"

namespace prot {

std::string environment_text(std::string_view name) {
    const std::wstring wide_name = to_wide(name);
    std::wstring text;
    for (DWORD size = 256; size > text.size();) {
        text.resize(size);
        size = GetEnvironmentVariableW(wide_name.c_str(), text.data(), size);
        if (size < text.size()) {
            text.resize(size);
            break;
        }
    }
    return to_utf8(text);
}

std::string computer_name() {
    wchar_t name[MAX_COMPUTERNAME_LENGTH + 1];
    DWORD size = MAX_COMPUTERNAME_LENGTH + 1;
    return GetComputerNameW(name, &size) ? to_utf8({name, size}) : std::string();
}

}  // namespace prot
