#pragma once

#include <oaidl.h>
#include <oleauto.h>

#include <utility>

namespace prot {

/// Owns one VARIANT. Move-only.
class Variant {
public:
    Variant() noexcept { VariantInit(&raw_); }
    static Variant adopt(VARIANT raw) noexcept {  ///< takes over
        Variant result;
        result.raw_ = raw;
        return result;
    }

    Variant(Variant&& other) noexcept : raw_(other.release()) {}
    Variant& operator=(Variant&& other) noexcept {
        std::swap(raw_, other.raw_);
        return *this;
    }
    ~Variant() { VariantClear(&raw_); }

    const VARIANT& borrow() const noexcept { return raw_; }  ///< [in] arguments; still ours
    VARIANT release() noexcept {                             ///< [out, retval]; now the caller's
        const VARIANT released = raw_;
        VariantInit(&raw_);
        return released;
    }
    VARIANT* receive() noexcept {  ///< clears the old value, is filled by a call
        VariantClear(&raw_);
        return &raw_;
    }

private:
    VARIANT raw_;
};

}  // namespace prot
