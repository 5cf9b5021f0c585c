#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "platform/change_document_reader.h"
#include "platform/environment.h"

namespace prot {

/// The change document of a log record: the changed columns with their old and new values, in document order.
/// One object reads one document after another; the reader is made for the first that is not empty.
class ChangeDocument {
public:
    explicit ChangeDocument(Environment& environment) : environment_(environment) {}

    enum class Loaded { yes, empty, unreadable };

    Loaded load(std::string_view dmData);

    /// The number of changed columns of the loaded document.
    std::int32_t columns() const { return columns_; }

    /// Selects column `index`, from 0, and returns its name; valid until the next column is selected.
    std::string_view select(std::int32_t index);

    /// The values of the selected column; each is valid until the next value is read.
    std::string_view old_value() { return value(ColumnPart::old_value); }
    std::string_view new_value() { return value(ColumnPart::new_value); }

private:
    std::string_view value(ColumnPart part);

    Environment& environment_;
    std::unique_ptr<ChangeDocumentReader> oXML;
    std::int32_t columns_ = 0;
    std::int32_t selected_ = 0;
    std::string name_;
};

}  // namespace prot
