#pragma once

#include <oaidl.h>
#include <oleauto.h>

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "platform/windows/com/automation_element.h"

namespace prot {

/// The elements of an array that someone else owns, locked for as long as the view lives.
class SafeArrayView {
public:
    /// `variant` holds an array, by reference or not. Anything else: automation error 13; `member` answered
    /// it, and `expected` was wanted.
    SafeArrayView(const VARIANT& variant, std::string_view member, std::string_view expected);
    ~SafeArrayView();
    SafeArrayView(const SafeArrayView&) = delete;
    SafeArrayView& operator=(const SafeArrayView&) = delete;

    unsigned dimensions() const { return array_ ? array_->cDims : 0; }
    std::size_t size(unsigned dimension) const { return bound(dimension).cElements; }  ///< dimensions from 1
    std::int32_t lower_bound(unsigned dimension) const { return bound(dimension).lLbound; }
    bool empty() const;  ///< also an array that was never given any dimension

    /// The element at `position` in memory, from 0, of a view that is not empty; the first dimension varies
    /// fastest.
    Element at(std::size_t position) const {
        return element_of(type_, static_cast<const std::byte*>(data_) + position * element_size_);
    }

private:
    const SAFEARRAYBOUND& bound(unsigned dimension) const {
        return array_->rgsabound[array_->cDims - dimension];  // stored from the last dimension to the first
    }

    SAFEARRAY* array_ = nullptr;
    VARTYPE type_ = VT_EMPTY;
    std::size_t element_size_ = 0;
    void* data_ = nullptr;
};

}  // namespace prot
