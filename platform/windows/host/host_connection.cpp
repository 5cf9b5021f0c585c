#include "platform/windows/host/host_connection.h"

#include <windows.h>

#include <algorithm>
#include <iterator>

namespace prot {

bool HostConnection::is_gone(std::int32_t number) {
    constexpr HRESULT numbers[] = {
        RPC_E_DISCONNECTED,
        RPC_E_SERVER_DIED,
        RPC_E_SERVER_DIED_DNE,
        CO_E_OBJNOTCONNECTED,
        HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE),
        HRESULT_FROM_WIN32(RPC_S_CALL_FAILED),
    };
    return std::ranges::find(numbers, number) != std::end(numbers);
}

}  // namespace prot
