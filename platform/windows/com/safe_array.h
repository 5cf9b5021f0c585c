#pragma once

#include <oaidl.h>
#include <oleauto.h>

#include <utility>

namespace prot {

/// Owns one SAFEARRAY, or none. Move-only.
class SafeArray {
public:
    SafeArray() = default;
    static SafeArray adopt(SAFEARRAY* raw) noexcept {  ///< takes over
        SafeArray result;
        result.raw_ = raw;
        return result;
    }

    SafeArray(SafeArray&& other) noexcept : raw_(other.release()) {}
    SafeArray& operator=(SafeArray&& other) noexcept {
        std::swap(raw_, other.raw_);
        return *this;
    }
    ~SafeArray() {
        if (raw_) SafeArrayDestroy(raw_);
    }

    SAFEARRAY* borrow() const noexcept { return raw_; }                     ///< still ours
    SAFEARRAY* release() noexcept { return std::exchange(raw_, nullptr); }  ///< now the caller's
    SAFEARRAY** receive() noexcept {  ///< destroys the old value, is filled by a call
        if (raw_) SafeArrayDestroy(std::exchange(raw_, nullptr));
        return &raw_;
    }

private:
    SAFEARRAY* raw_ = nullptr;
};

}  // namespace prot
