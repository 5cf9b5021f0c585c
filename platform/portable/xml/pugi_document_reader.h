#pragma once

#include <memory>

#include "platform/change_document_reader.h"

namespace prot {

/// Creates a reader of change documents over the packaged XML library. Documents of any size and depth that
/// memory holds.
std::unique_ptr<ChangeDocumentReader> create_pugi_document_reader();

}  // namespace prot
