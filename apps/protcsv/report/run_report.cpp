#include "apps/protcsv/report/run_report.h"

#include <filesystem>

#include "apps/protcsv/commands.h"
#include "apps/protcsv/console/interruption.h"
#include "apps/protcsv/options/usage_error.h"
#include "apps/protcsv/own_files.h"
#include "apps/protcsv/report/report_text.h"
#include "platform/automation/error.h"
#include "platform/portable/files/atomic_file.h"

namespace prot {

namespace {

/// Whether what is written there stays there and can be replaced: no device, no pipe.
bool keeps_what_is_written(const std::filesystem::path& place) {
    std::error_code ignored;
    const std::filesystem::file_status status = std::filesystem::status(place, ignored);
    return !std::filesystem::exists(status) || std::filesystem::is_regular_file(status);
}

}  // namespace

RunReport::RunReport(const Options& options, const Console& console, SectionTable sections,
                     RunAccount& account)
    : options_(options), console_(console), sections_(sections), account_(account) {
    if (!wanted()) return;
    account_.sum.emplace();
    if (options_.report != standard_stream) require_own_report(options_);
}

int RunReport::around(const std::function<int()>& run) {
    if (!wanted()) return run();
    if (options_.report != standard_stream && keeps_what_is_written(text_path(options_.report)))
        write(report_text(options_, sections_, account_, std::nullopt));
    const auto raised = [this](int status, std::string_view message) {
        account_.message = message;
        end(status);
    };
    try {
        const int status = run();
        return end(status) ? status : exit_error;
    } catch (const UsageError& error) {
        raised(exit_usage, error.what());
        throw;
    } catch (const AutomationError& error) {
        raised(exit_error, error.description());
        throw;
    } catch (const std::bad_alloc&) {
        raised(exit_error, out_of_memory_text);
        throw;
    } catch (const std::exception& error) {
        raised(exit_error, error.what());
        throw;
    }
}

/// False, and said, when the report cannot be written.
bool RunReport::end(int status) noexcept {
    try {
        const std::string text = report_text(options_, sections_, account_, status);
        if (options_.report == standard_stream) return print(console_, text) == exit_done;
        write(text);
        return true;
    } catch (const AutomationError& error) {
        complain(console_, error.description());
    } catch (const std::exception& error) {
        complain(console_, std::string_view(error.what()));
    }
    return false;
}

void RunReport::write(const std::string& text) const {
    const InterruptionsWait wait;  // or an unfinished file would be left
    const std::unique_ptr<PendingFile> file = system_files().prepare(text_path(options_.report));
    file->create();
    file->write(text);
    file->complete();
}

}  // namespace prot
