#pragma once

#include <cstdint>
#include <string_view>

namespace prot {

/// Reads values out of one XML document by path (class srvZQXml.DOMSelectClass in the suite). The paths
/// understood:
///   //Cols                                the first element Cols; its count is the number of its children
///   Col
///   //Cols/Col[i]/attribute("Name")       the column's name; i from 0
///   //Cols/Col[i]/OldValue                its old value, likewise NewValue
///   //Cols/Col[@Name="X"]/OldValue        the old value of the first column of that exact name
class XmlSelect {
public:
    virtual ~XmlSelect() = default;

    /// Loads a document (UTF-8; an encoding named in the XML declaration is ignored). False when it is not
    /// well-formed, has a document type, or is empty; then nothing is selected by any path.
    virtual bool load(std::string_view document) = 0;

    /// The number of nodes at "//Cols"; 0 for any other path.
    virtual std::int32_t count(std::string_view path) = 0;

    /// The text of the node at `path`: all text in it joined, untrimmed, CR LF as LF; empty when nothing is
    /// selected. Valid until the next call of load or value.
    virtual std::string_view value(std::string_view path) = 0;
};

}  // namespace prot
