#pragma once

#include <memory>

#include "platform/xml_select.h"

namespace prot {

/// Creates an XML reader over the packaged XML library. Documents of any size and depth that memory holds.
std::unique_ptr<XmlSelect> create_pugi_xml_select();

}  // namespace prot
