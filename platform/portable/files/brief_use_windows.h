#pragma once

#include <windows.h>

#include <algorithm>
#include <system_error>

namespace prot {

/// What `attempt` answers, an error code. While that says that a file or folder is in use (or may not be
/// touched, as Windows says of one that is), it is asked again for a second at most: another run of the
/// program, a virus scanner or an indexer has what is new open for an instant.
template <class Attempt>
std::error_code after_brief_use(Attempt attempt) {
    constexpr DWORD first_wait = 5;  // milliseconds, doubled each time
    constexpr DWORD longest_waits = 1000;
    std::error_code answer = attempt();
    for (DWORD wait = first_wait, waited = 0; waited < longest_waits; waited += wait, wait *= 2) {
        if (answer != std::errc::device_or_resource_busy && answer != std::errc::permission_denied) break;
        wait = std::min(wait, longest_waits - waited);
        Sleep(wait);
        answer = attempt();
    }
    return answer;
}

}  // namespace prot
