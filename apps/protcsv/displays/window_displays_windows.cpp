#include <objbase.h>

#include "apps/protcsv/displays/choose_displays.h"
#include "platform/portable/help/help_topics.h"
#include "platform/portable/terminal/terminal_error_display.h"
#include "platform/windows/forms/progress_window.h"
#include "platform/windows/forms/window_forms.h"
#include "platform/windows/system/browser_help_display.h"
#include "platform/windows/system/finished_file.h"
#include "platform/windows/system/save_dialog.h"
#include "platform/windows/system/system_message_boxes.h"

namespace prot {

namespace {

constexpr std::string_view title = "Protokollierung";

/// Boxes that mark the run as those on the terminal's lines do.
class RunBoxes : public MessageBoxes {
public:
    RunBoxes(const DisplayMeans& means, ProgressWindow& progress) : means_(means), progress_(progress) {}

    BoxAnswer show(std::string_view text, BoxStyle style, std::string_view box_title) override {
        progress_.close();
        if (is_question(style) && means_.message_boxes.answers_yes())
            return means_.message_boxes.note(BoxAnswer::yes, box_title);
        if (is_question(style)) style = BoxStyle::question_default_no;
        return means_.message_boxes.note(boxes_.show(text, style, box_title), box_title);
    }

private:
    DisplayMeans means_;
    ProgressWindow& progress_;
    SystemMessageBoxes boxes_{[this](const AutomationError& error) {
        means_.terminal.complain(error.description());
        means_.terminal.note(Outcome::failed);
    }};
};

/// Forms that mark a run as cancelled when their Cancel is pressed.
class RunForms : public FormDisplay {
public:
    explicit RunForms(Terminal& terminal) : terminal_(terminal) {}

    void show_modal(Form& form) override {
        const std::function<void()> cancel = form.cancel.click;
        form.cancel.click = [&] {
            terminal_.note(Outcome::cancelled);
            if (cancel) cancel();
        };
        forms_.show_modal(form);
        form.cancel.click = cancel;
    }

private:
    Terminal& terminal_;
    WindowForms forms_{[this] { terminal_.require_input(); }};
};

class BoxErrorDisplay : public ErrorDisplay {
public:
    explicit BoxErrorDisplay(MessageBoxes& boxes) : boxes_(boxes) {}
    void ZQ_gShowError(std::int32_t lNummer, std::string_view sQuelle,
                       std::string_view sBeschreibung) override {
        boxes_.show(problem_report_text(lNummer, sQuelle, sBeschreibung), BoxStyle::plain,
                    problem_report_title);
    }

private:
    MessageBoxes& boxes_;
};

/// The suite's help viewer is a COM object, and other programs may be started by way of one.
class Apartment {
public:
    Apartment() : entered_(SUCCEEDED(CoInitializeEx(nullptr, mode))) {}
    ~Apartment() {
        if (entered_) CoUninitialize();
    }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;

private:
    static constexpr DWORD mode = COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE;

    const bool entered_;
};

/// The progress window for the length of one export.
class RunProgress : public ProgressParent {
public:
    explicit RunProgress(ProgressWindow& window) : window_(window) {}
    ~RunProgress() override { window_.close(); }

    void gRefresh() override { window_.gRefresh(); }
    void gSetFortschritt(std::int32_t lZeile, std::int32_t lLetzte) override {
        window_.gSetFortschritt(lZeile, lLetzte);
    }

private:
    ProgressWindow& window_;
};

class WindowDisplays : public Displays {
public:
    explicit WindowDisplays(const DisplayMeans& means)
        : terminal_(means.terminal), forms_(means.terminal), boxes_(means, progress_) {}

    FormDisplay& forms() override { return forms_; }
    MessageBoxes& message_boxes() override { return boxes_; }
    std::unique_ptr<ErrorDisplay> create_error_display() override {
        return std::make_unique<BoxErrorDisplay>(boxes_);
    }
    std::unique_ptr<HelpDisplay> create_help_display() override {
        return help_display([](std::string_view map_file, std::string_view help_id) {
            return HelpTopics::of_program().page(map_file, help_id);
        });
    }
    std::optional<std::string> ask_file_name(const std::string& suggestion,
                                             const std::string& folder) override {
        progress_.close();
        const std::optional<std::string> name =
            SaveDialog(boxes_, [this] { terminal_.require_input(); }).ask(suggestion, folder);
        if (!name) terminal_.note(Outcome::cancelled);
        return name;
    }
    bool refuse_file_name(std::string_view why) override {
        boxes_.show(why, BoxStyle::exclamation, title);
        return true;
    }
    void show_file(const std::string& path) override {
        progress_.close();
        open_finished_file(path, boxes_);
    }
    std::unique_ptr<ProgressParent> create_progress() override {
        return std::make_unique<RunProgress>(progress_);
    }
    void tell(Telling kind, std::string_view text) override {
        boxes_.show(text, kind == Telling::warning ? BoxStyle::exclamation : BoxStyle::information, title);
    }

private:
    Apartment apartment_;
    Terminal& terminal_;
    ProgressWindow progress_{std::string(title)};
    RunForms forms_;
    RunBoxes boxes_;
};

}  // namespace

std::unique_ptr<Displays> full_screen_if_usable(const DisplayMeans& means) {
    if (!has_interactive_desktop()) return nullptr;
    return std::make_unique<WindowDisplays>(means);
}

}  // namespace prot
