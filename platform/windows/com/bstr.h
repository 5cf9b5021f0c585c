#pragma once

#include <oaidl.h>
#include <oleauto.h>

#include <string>
#include <string_view>
#include <utility>

namespace prot {

/// Owns one BSTR, or none, which is the empty text too. Move-only.
class Bstr {
public:
    Bstr() = default;
    explicit Bstr(std::string_view utf8);   ///< converts and copies; fails with std::bad_alloc
    static Bstr adopt(BSTR raw) noexcept {  ///< takes over
        Bstr result;
        result.raw_ = raw;
        return result;
    }

    Bstr(Bstr&& other) noexcept : raw_(other.release()) {}
    Bstr& operator=(Bstr&& other) noexcept {
        std::swap(raw_, other.raw_);
        return *this;
    }
    ~Bstr() { SysFreeString(raw_); }

    BSTR borrow() const noexcept { return raw_; }                     ///< [in] arguments; still ours
    BSTR release() noexcept { return std::exchange(raw_, nullptr); }  ///< [out, retval]; now the caller's
    BSTR* receive() noexcept {  ///< frees the old value, is filled by a call
        SysFreeString(std::exchange(raw_, nullptr));
        return &raw_;
    }
    std::string text() const;  ///< as UTF-8

private:
    BSTR raw_ = nullptr;
};

/// The text of a BSTR that belongs to someone else; null is the empty text.
std::string text_of(BSTR borrowed);

}  // namespace prot
