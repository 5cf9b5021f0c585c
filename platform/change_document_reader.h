#pragma once

#include <cstdint>
#include <string_view>

namespace prot {

/// What is read of one changed column.
enum class ColumnPart { name, old_value, new_value };

/// Reads the columns out of one change document after another (class srvZQXml.DOMSelectClass in the suite).
/// The columns are the children Col of the first element Cols, in document order. The text of an element is
/// all text in it joined, untrimmed, CR LF as LF.
class ChangeDocumentReader {
public:
    virtual ~ChangeDocumentReader() = default;

    /// Loads a document (UTF-8; an encoding named in the XML declaration is ignored). False when it is not
    /// well-formed, has a document type, or is empty; then there is no column.
    virtual bool load(std::string_view document) = 0;

    /// The number of columns.
    virtual std::int32_t columns() const = 0;

    /// The attribute Name of column `index`, from 0, or its first element OldValue or NewValue; empty when it
    /// has none, and for an index without column. Valid until the next call of load, part or old_value_of.
    virtual std::string_view part(std::int32_t index, ColumnPart part) = 0;

    /// The old value of the first column of exactly that name that has one; empty when there is none. Valid
    /// as long.
    virtual std::string_view old_value_of(std::string_view name) = 0;
};

}  // namespace prot
