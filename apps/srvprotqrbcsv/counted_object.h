#pragma once

#include <windows.h>

#include <atomic>

#include "apps/srvprotqrbcsv/module.h"

namespace prot {

/// An object that clients hold by references: it counts them, goes with the last one, and keeps the library
/// in memory until then. QueryInterface is the derived class's.
template <class... Interfaces>
class CountedObject : public Interfaces... {
public:
    CountedObject() = default;
    CountedObject(const CountedObject&) = delete;
    CountedObject& operator=(const CountedObject&) = delete;

    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() noexcept override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }

protected:
    virtual ~CountedObject() = default;

private:
    std::atomic<ULONG> references_ = 0;
    module::Reference module_;
};

}  // namespace prot
