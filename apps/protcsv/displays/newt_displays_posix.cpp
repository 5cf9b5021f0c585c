#include "apps/protcsv/displays/file_name_form.h"
#include "apps/protcsv/displays/line_displays.h"
#include "platform/portable/help/help_topics.h"
#include "platform/portable/screen/newt_screen.h"
#include "platform/portable/screen/screen_displays.h"
#include "platform/portable/screen/screen_forms.h"

namespace prot {

namespace {

constexpr std::size_t help_width = 70;

/// Forms that take the whole terminal, with what comes up in front of them. While none is open, the
/// terminal's lines show everything.
class NewtDisplays : public LineDisplays {
public:
    explicit NewtDisplays(const DisplayMeans& means)
        : LineDisplays(means),
          forms_(screen_, means.terminal, LineDisplays::forms()),
          message_boxes_(screen_, means.message_boxes) {}

    FormDisplay& forms() override { return forms_; }
    MessageBoxes& message_boxes() override { return message_boxes_; }
    std::unique_ptr<ErrorDisplay> create_error_display() override {
        return std::make_unique<ScreenErrorDisplay>(screen_, terminal());
    }
    std::unique_ptr<HelpDisplay> create_help_display() override {
        return std::make_unique<ScreenHelpDisplay>(
            screen_, LineDisplays::create_help_display(),
            [topics = HelpTopics::of_program()](std::string_view map_file, std::string_view help_id) {
                return topics.text(map_file, help_id, help_width);
            });
    }
    std::optional<std::string> ask_file_name(const std::string& suggestion,
                                             const std::string& /*folder*/) override {
        return prot::ask_file_name(forms_, suggestion);
    }

private:
    NewtScreen screen_;
    ScreenForms forms_;
    ScreenMessageBoxes message_boxes_;
};

}  // namespace

std::unique_ptr<Displays> full_screen_if_usable(const DisplayMeans& means) {
    if (!NewtScreen::is_usable()) return nullptr;
    return std::make_unique<NewtDisplays>(means);
}

}  // namespace prot
