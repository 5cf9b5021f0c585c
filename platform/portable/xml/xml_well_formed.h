#pragma once

#include <string>

namespace prot {

/// Whether `document` (UTF-8, a byte order mark at its start allowed) keeps the rules of a well-formed
/// XML 1.0 document that a fast parser passes over: one root and only white space, comments and processing
/// instructions around it; valid UTF-8 and XML characters throughout; the XML declaration only at the start;
/// names, attributes, references, comments and CDATA sections as the grammar has them; no attribute twice. A
/// document type declaration is refused altogether, so only the five predefined entities exist. An encoding
/// named in the XML declaration has to be a name, but means nothing.
///
/// Left to the parser: that an end tag names the element that it ends.
///
/// One pass, no recursion; time proportional to the document, n log n for the attributes of one element;
/// memory only for elements of several attributes. Source: W3C, XML 1.0, fifth edition; names without regard
/// to namespaces.
bool is_strict_xml(const std::string& document);

}  // namespace prot
