#pragma once

#include <memory>

#include "platform/change_document_reader.h"

namespace prot {

/// Creates a reader of change documents, of any size and depth that memory holds. What one document needed
/// serves the next, up to a few MiB.
std::unique_ptr<ChangeDocumentReader> create_document_reader();

}  // namespace prot
