#pragma once

#include "apps/protcsv/displays/choose_displays.h"
#include "platform/portable/terminal/terminal_forms.h"

namespace prot {

/// Where files lie, for a person: the whole path.
std::string folder_text(const std::string& folder);

/// Displays as lines on a terminal, or in the file that stands in for one: forms are questions, progress is a
/// status line.
class LineDisplays : public Displays {
public:
    explicit LineDisplays(const DisplayMeans& means) : means_(means), forms_(means.terminal) {}

    FormDisplay& forms() override { return forms_; }
    MessageBoxes& message_boxes() override { return means_.message_boxes; }
    std::unique_ptr<ErrorDisplay> create_error_display() override;
    std::unique_ptr<HelpDisplay> create_help_display() override;
    std::unique_ptr<ProgressParent> create_progress() override;
    /// Prepared answers name a file that may be replaced.
    bool may_replace(const std::string& path) override;
    std::optional<std::string> ask_file_name(const std::string& suggestion,
                                             const std::string& folder) override;
    bool refuse_file_name(std::string_view why) override {
        if (means_.terminal.asks_person()) means_.terminal.refuse_answer(why);
        return means_.terminal.asks_person();
    }
    /// The path on standard output is all the presentation there is.
    void show_file(const std::string& /*path*/) override {}
    void tell(Telling /*kind*/, std::string_view text) override { means_.terminal.write(text); }

protected:
    Terminal& terminal() const { return means_.terminal; }

private:
    DisplayMeans means_;
    TerminalForms forms_;
};

}  // namespace prot
