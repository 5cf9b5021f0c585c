#pragma once

#include <unknwn.h>

namespace prot {

/// The class factory of `class_id`, by interface `iid`; CLASS_E_CLASSNOTAVAILABLE for a class that is not in
/// the table.
HRESULT class_factory(REFCLSID class_id, REFIID iid, void** object) noexcept;

}  // namespace prot
