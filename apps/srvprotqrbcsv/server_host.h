#pragma once

#include <array>
#include <memory>
#include <optional>
#include <string>

#include "platform/automation/error.h"
#include "platform/environment.h"
#include "platform/portable/csv/csv_file_writer.h"
#include "platform/portable/time/system_clock.h"
#include "platform/windows/forms/window_forms.h"
#include "platform/windows/host/database_object.h"
#include "platform/windows/system/save_dialog.h"
#include "platform/windows/system/system_message_boxes.h"
#include "platform/windows/system/system_pointer.h"

namespace prot {

/// The outside world of one automation object: the system's windows and pointer, files, the suite's
/// components. What a run cannot show to a person becomes the error of its call, because the procedures
/// between here and there end their errors themselves.
class ServerHost : private Components,
                   private CsvFileHost,
                   private ConnectionInformation,
                   private ExportNotices {
public:
    ServerHost();

    Environment& environment() { return environment_; }

    /// Prepares for a run on `database`, which outlives it.
    void begin(DatabaseObject& database);
    /// Ends the run; raises what it could not show.
    void end();
    /// Ends a run that failed.
    void abandon() noexcept;

private:
    std::unique_ptr<CsvWriter> create_csv_writer() override;
    std::unique_ptr<ChangeDocumentReader> create_change_document_reader() override;
    std::unique_ptr<ErrorDisplay> create_error_display() override;
    std::unique_ptr<HelpDisplay> create_help_display() override;
    std::unique_ptr<ValueTranslator> create_value_translator(std::string_view program_id) override;

    std::optional<std::string> ask_file_name(const std::string& suggestion) override;
    void unfinished_file(const std::string& path) override;
    void file_finished(const std::string& path) override;
    void characters_replaced(const std::string& path, const ReplacedCharacters& characters) override;
    void show_file(const std::string& path) override;

    std::array<std::string, 10> fields(int code) override;

    void field_without_caption(std::string_view table, std::string_view column) override;
    void lookup_failed(std::string_view error) override;
    void record_read(std::int64_t log_id, std::int64_t lines, NoLine why) override;

    void refuse_form();
    void refuse(AutomationError error);

    DatabaseObject* database_ = nullptr;  // during a run
    std::optional<AutomationError> refusal_;
    SystemMessageBoxes message_boxes_;
    WindowForms forms_;
    SaveDialog save_dialog_;
    SystemPointer pointer_;
    SystemClock clock_;
    Environment environment_;
};

}  // namespace prot
