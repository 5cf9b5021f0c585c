#include "apps/protcsv/displays/file_name_form.h"

namespace prot {

namespace {

constexpr std::size_t longest_path = 4095;  // what the system takes

}  // namespace

std::optional<std::string> ask_file_name(FormDisplay& display, const std::string& suggestion,
                                         const std::string& notice) {
    bool accepted = false;
    Form form;
    form.caption = "CSV-Datei schreiben";
    form.notice = notice;
    form.fields = {
        {.kind = FieldKind::text, .label = "&Dateiname", .text = suggestion, .longest = longest_path}};
    form.ok = {.text = "OK", .click = [&] {
                   accepted = true;
                   form.shown = false;
               }};
    form.cancel = {.text = "Abbrechen", .causes_validation = false, .click = [&] { form.shown = false; }};
    form.set_focus(0);
    display.show_modal(form);
    if (!accepted) return std::nullopt;
    return form.fields[0].text;
}

}  // namespace prot
