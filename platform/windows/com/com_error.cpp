#include "platform/windows/com/com_error.h"

#include <oaidl.h>
#include <oleauto.h>

#include <cstdio>

#include "platform/windows/com/bstr.h"
#include "platform/windows/com/com_ptr.h"
#include "platform/windows/text/wide_text.h"

namespace prot {

namespace {

constexpr HRESULT run_time_errors = static_cast<HRESULT>(0x800A0000);

/// A system message in a language; empty when there is none.
std::string message(DWORD number, LANGID language) {
    wchar_t* buffer = nullptr;
    const DWORD length = FormatMessageW(
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
        number, language, reinterpret_cast<wchar_t*>(&buffer), 0, nullptr);
    if (length == 0) return {};
    std::wstring_view text(buffer, length);
    while (!text.empty() && text.back() <= L' ') text.remove_suffix(1);
    std::string utf8 = to_utf8(text);
    LocalFree(buffer);
    return utf8;
}

std::string message(DWORD number) {
    std::string text = message(number, MAKELANGID(LANG_GERMAN, SUBLANG_GERMAN));
    return text.empty() ? message(number, 0) : text;
}

/// The error that the thread's error information tells; its texts may be empty.
AutomationError error_of(HRESULT result, IErrorInfo& information) {
    Bstr source, description;
    information.GetSource(source.receive());
    information.GetDescription(description.receive());
    return AutomationError(result, source.text(), description.text());
}

AutomationError with_description(AutomationError error) {
    if (error.description().empty()) error.append_to_description(system_text(error.number()));
    return error;
}

HRESULT number_of(const EXCEPINFO& exception) {
    if (exception.wCode != 0) return run_time_errors + exception.wCode;
    return FAILED(exception.scode) ? exception.scode : DISP_E_EXCEPTION;
}

}  // namespace

AutomationError error_of_call(HRESULT result, IUnknown* object, REFIID iid) {
    // First of all: asking the object may leave other information behind.
    ComPtr<IErrorInfo> information;
    GetErrorInfo(0, information.receive());
    const auto vouching = ComPtr<IUnknown>::share(object).query<ISupportErrorInfo>();
    if (!information || !vouching || vouching->InterfaceSupportsErrorInfo(iid) != S_OK)
        return AutomationError(result, std::string(), system_text(result));
    return with_description(error_of(result, *information.borrow()));
}

AutomationError error_of_invoke(HRESULT result, EXCEPINFO& exception) {
    if (result == DISP_E_EXCEPTION && exception.pfnDeferredFillIn) {
        exception.pfnDeferredFillIn(&exception);
        exception.pfnDeferredFillIn = nullptr;
    }
    const Bstr source = Bstr::adopt(std::exchange(exception.bstrSource, nullptr));
    const Bstr description = Bstr::adopt(std::exchange(exception.bstrDescription, nullptr));
    const Bstr help_file = Bstr::adopt(std::exchange(exception.bstrHelpFile, nullptr));
    if (result != DISP_E_EXCEPTION) return AutomationError(result, std::string(), system_text(result));
    return with_description(AutomationError(number_of(exception), source.text(), description.text()));
}

std::string system_text(HRESULT result) {
    std::string text = message(static_cast<DWORD>(result));
    if (text.empty() && HRESULT_FACILITY(result) == FACILITY_WIN32)
        text = message(static_cast<DWORD>(HRESULT_CODE(result)));
    if (!text.empty()) return text;
    char unknown[48];
    std::snprintf(unknown, sizeof unknown, "Automatisierungsfehler 0x%08lX",
                  static_cast<unsigned long>(result));
    return unknown;
}

HRESULT publish(const AutomationError& error, REFIID iid) noexcept {
    const HRESULT result = FAILED(error.number()) ? error.number() : E_FAIL;
    SetErrorInfo(0, nullptr);  // what an earlier call left must not pass for this error
    try {
        const Bstr source(error.source()), description(error.description());
        ComPtr<ICreateErrorInfo> information;
        if (FAILED(CreateErrorInfo(information.receive()))) return result;
        information->SetGUID(iid);
        information->SetSource(source.borrow());
        information->SetDescription(description.borrow());
        if (const auto finished = information.query<IErrorInfo>()) SetErrorInfo(0, finished.borrow());
    } catch (...) {
        // The number alone has to do when memory ran out.
    }
    return result;
}

}  // namespace prot
