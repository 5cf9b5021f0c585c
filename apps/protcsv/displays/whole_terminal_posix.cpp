#include <utility>

#include "apps/protcsv/displays/file_name_form.h"
#include "apps/protcsv/displays/line_displays.h"
#include "apps/protcsv/displays/whole_terminal.h"
#include "platform/portable/help/help_topics.h"
#include "platform/portable/screen/newt_screen.h"
#include "platform/portable/screen/screen_displays.h"
#include "platform/portable/screen/screen_forms.h"
#include "platform/portable/screen/text_window.h"

namespace prot {

namespace {

constexpr std::size_t help_width = 70;

/// Forms that take the whole terminal, with what comes up in front of them. While none is open, the
/// terminal's lines show everything.
class ScreenDisplays : public LineDisplays {
public:
    ScreenDisplays(const DisplayMeans& means, std::unique_ptr<Screen> screen)
        : LineDisplays(means),
          screen_(std::move(screen)),
          forms_(*screen_, means.terminal, LineDisplays::forms()),
          message_boxes_(*screen_, forms_, means.message_boxes) {}

    FormDisplay& forms() override { return forms_; }
    MessageBoxes& message_boxes() override { return message_boxes_; }
    std::unique_ptr<ErrorDisplay> create_error_display() override {
        return std::make_unique<ScreenErrorDisplay>(*screen_, terminal());
    }
    std::unique_ptr<HelpDisplay> create_help_display() override {
        return std::make_unique<ScreenHelpDisplay>(
            *screen_, LineDisplays::create_help_display(),
            [topics = HelpTopics::of_program()](std::string_view map_file, std::string_view help_id) {
                return topics.text(map_file, help_id, help_width);
            });
    }
    std::optional<std::string> ask_file_name(const std::string& suggestion,
                                             const std::string& folder) override {
        const std::string refusal = std::exchange(refusal_, {});
        const std::string notice = (refusal.empty() ? "" : refusal + '\n') + "Ordner: " + folder_text(folder);
        const std::optional<std::string> name =
            prot::ask_file_name(forms_, refusal.empty() ? suggestion : entered_name_, notice);
        entered_name_ = name.value_or("");
        return name;
    }
    bool may_replace(const std::string& path) override {
        const std::string text = "Die Datei „" + path + "“ gibt es schon. Soll sie ersetzt werden?";
        // No is what a hasty Enter says.
        const auto button = show_text_window(*screen_, {"CSV-Datei schreiben", text, {"&Ja", "&Nein"}, 1, 1});
        if (!button) return LineDisplays::may_replace(path);
        if (*button == 0) return true;
        refusal_ = "Bitte einen anderen Namen eingeben.";
        return false;
    }
    /// The form comes again with what was entered.
    bool refuse_file_name(std::string_view why) override {
        refusal_ = why;
        return true;
    }

private:
    std::unique_ptr<Screen> screen_;
    ScreenForms forms_;
    ScreenMessageBoxes message_boxes_;
    std::string entered_name_, refusal_;
};

}  // namespace

std::unique_ptr<Displays> whole_terminal(const DisplayMeans& means, std::unique_ptr<Screen> screen) {
    return std::make_unique<ScreenDisplays>(means, std::move(screen));
}

std::unique_ptr<Displays> full_screen_if_usable(const DisplayMeans& means) {
    if (!NewtScreen::is_usable()) return nullptr;
    return whole_terminal(means, std::make_unique<NewtScreen>());
}

}  // namespace prot
