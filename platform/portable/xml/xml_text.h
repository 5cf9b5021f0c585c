#pragma once

#include <string>

#include "platform/portable/xml/xml_grammar.h"

namespace prot::xml {

/// Appends the text that `stretch` stands for: references resolved but for CDATA sections, line ends (CR LF,
/// a lone CR) as LF, each white space of an attribute's value as a blank. Never more bytes than the stretch
/// has. What references name stays as it is. `stretch` is part of a well-formed document.
void append_text(std::string& text, Stretch stretch);

}  // namespace prot::xml
