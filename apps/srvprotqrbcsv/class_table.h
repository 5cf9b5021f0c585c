#pragma once

#include <unknwn.h>

#include <span>

/// The classes that clients create; one row each. Class factory and registration follow from it.
namespace prot {

struct AutomationClass {
    const CLSID& id;
    const IID& default_interface;
    const wchar_t* name;  ///< of the class; its programmatic identifier is library name, point, name
    const wchar_t* interface_name;  ///< of its default interface
    const wchar_t* description;
    /// A new object without a reference.
    IUnknown* (*create)();
};

std::span<const AutomationClass> automation_classes();

}  // namespace prot
