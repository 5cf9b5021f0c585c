#include "apps/protcsv/displays/file_name_form.h"
#include "apps/protcsv/displays/full_screen.h"
#include "platform/portable/screen/newt_screen.h"
#include "platform/portable/screen/screen_displays.h"
#include "platform/portable/screen/screen_forms.h"
#include "platform/portable/terminal/terminal_help_display.h"

namespace prot {

namespace {

constexpr std::size_t help_width = 70;

class NewtFullScreen : public FullScreen {
public:
    explicit NewtFullScreen(const PlainDisplays& plain)
        : plain_(plain),
          forms_(screen_, plain.terminal, plain.forms),
          message_boxes_(screen_, plain.message_boxes) {}

    FormDisplay& forms() override { return forms_; }
    MessageBoxes& message_boxes() override { return message_boxes_; }
    std::unique_ptr<ErrorDisplay> create_error_display() override {
        return std::make_unique<ScreenErrorDisplay>(screen_, plain_.terminal);
    }
    std::unique_ptr<HelpDisplay> create_help_display() override {
        const HelpTopics topics = HelpTopics::of_program();
        return std::make_unique<ScreenHelpDisplay>(
            screen_, std::make_unique<TerminalHelpDisplay>(plain_.terminal, topics),
            [topics](std::string_view map_file, std::string_view help_id) {
                return topics.text(map_file, help_id, help_width);
            });
    }
    std::optional<std::string> ask_file_name(const std::string& suggestion,
                                             const std::string& /*folder*/) override {
        return prot::ask_file_name(forms_, suggestion);
    }
    /// The path on standard output is all the presentation there is.
    void show_file(const std::string& /*path*/) override {}
    ProgressParent* progress() override { return nullptr; }
    void tell(std::string_view text) override { plain_.terminal.write(text); }

private:
    PlainDisplays plain_;
    NewtScreen screen_;
    ScreenForms forms_;
    ScreenMessageBoxes message_boxes_;
};

}  // namespace

std::unique_ptr<FullScreen> full_screen_if_usable(const PlainDisplays& plain) {
    if (!NewtScreen::is_usable()) return nullptr;
    return std::make_unique<NewtFullScreen>(plain);
}

}  // namespace prot
