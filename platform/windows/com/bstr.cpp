#include "platform/windows/com/bstr.h"

#include <limits>
#include <new>

#include "platform/windows/text/wide_text.h"

namespace prot {

Bstr::Bstr(std::string_view utf8) {
    const std::wstring wide = to_wide(utf8);
    if (wide.size() > std::numeric_limits<UINT>::max() / sizeof(wchar_t)) throw std::bad_alloc();
    raw_ = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
    if (!raw_) throw std::bad_alloc();
}

std::string Bstr::text() const { return text_of(raw_); }

std::string text_of(BSTR borrowed) { return to_utf8({borrowed ? borrowed : L"", SysStringLen(borrowed)}); }

}  // namespace prot
