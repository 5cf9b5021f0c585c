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

    SafeArray(SafeArray&& other) noexcept : raw_(std::exchange(other.raw_, nullptr)) {}
    ~SafeArray() {
        if (raw_) SafeArrayDestroy(raw_);
    }

    SAFEARRAY* borrow() const noexcept { return raw_; }  ///< still ours

private:
    SAFEARRAY* raw_ = nullptr;
};

}  // namespace prot
