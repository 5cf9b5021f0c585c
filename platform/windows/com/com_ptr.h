#pragma once

#include <unknwn.h>

#include <utility>

namespace prot {

/// Owns one reference to a COM object, or none. Copies take a reference of their own.
template <class T>
class ComPtr {
public:
    ComPtr() = default;
    /// Takes over a reference that the caller owns.
    static ComPtr adopt(T* raw) noexcept {
        ComPtr result;
        result.raw_ = raw;
        return result;
    }
    /// Takes a reference of its own to an object that the caller keeps.
    static ComPtr share(T* raw) noexcept {
        if (raw) raw->AddRef();
        return adopt(raw);
    }

    ComPtr(const ComPtr& other) noexcept : ComPtr(share(other.raw_)) {}
    ComPtr(ComPtr&& other) noexcept : raw_(std::exchange(other.raw_, nullptr)) {}
    ComPtr& operator=(ComPtr other) noexcept {
        std::swap(raw_, other.raw_);
        return *this;
    }
    ~ComPtr() {
        if (raw_) raw_->Release();
    }

    /// The object; still ours. Null when there is none.
    T* borrow() const noexcept { return raw_; }
    T* operator->() const noexcept { return raw_; }
    explicit operator bool() const noexcept { return raw_ != nullptr; }

    /// The reference; now the caller's.
    T* release() noexcept { return std::exchange(raw_, nullptr); }

    /// Gives up the old reference and is filled by a call.
    T** receive() noexcept {
        *this = ComPtr();
        return &raw_;
    }

    /// The same object by another interface; null when it has none.
    template <class U>
    ComPtr<U> query() const noexcept {
        ComPtr<U> other;
        void* found = nullptr;
        if (raw_ && SUCCEEDED(raw_->QueryInterface(__uuidof(U), &found)))
            other = ComPtr<U>::adopt(static_cast<U*>(found));
        return other;
    }

private:
    T* raw_ = nullptr;
};

}  // namespace prot
