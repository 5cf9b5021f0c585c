#pragma once

#include <memory>
#include <string_view>

#include "platform/change_document_reader.h"
#include "platform/csv_writer.h"
#include "platform/error_display.h"
#include "platform/help_display.h"
#include "platform/value_translator.h"

namespace prot {

/// Creates the outside components. Each call creates a new one, or fails with the system's error.
class Components {
public:
    virtual ~Components() = default;
    virtual std::unique_ptr<CsvWriter> create_csv_writer() = 0;
    virtual std::unique_ptr<ChangeDocumentReader> create_change_document_reader() = 0;
    virtual std::unique_ptr<ErrorDisplay> create_error_display() = 0;
    virtual std::unique_ptr<HelpDisplay> create_help_display() = 0;

    /// A translator by its programmatic identifier; null where there is none, which is no error.
    virtual std::unique_ptr<ValueTranslator> create_value_translator(std::string_view /*program_id*/) {
        return nullptr;
    }
};

}  // namespace prot
