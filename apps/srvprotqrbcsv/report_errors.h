#pragma once

#include <exception>
#include <new>
#include <string>

#include "platform/automation/error.h"
#include "platform/windows/com/com_error.h"

namespace prot {

/// Runs the body of a member of interface `iid`. Nothing is thrown to the client: an error becomes the
/// HRESULT of its number with error information, whatever it was.
template <class Body>
HRESULT report_errors(REFIID iid, Body body) noexcept {
    try {
        body();
        return S_OK;
    } catch (const AutomationError& error) {
        return publish(error, iid);
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (const std::exception& error) {
        try {
            return publish({ErrorNumber::internal, std::string("Interner Fehler: ") + error.what()}, iid);
        } catch (...) {
            return E_OUTOFMEMORY;
        }
    } catch (...) {
        return E_UNEXPECTED;
    }
}

}  // namespace prot
