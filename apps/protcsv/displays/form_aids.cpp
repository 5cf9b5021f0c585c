#include "apps/protcsv/displays/form_aids.h"

#include <algorithm>
#include <string_view>

namespace prot {

namespace {

constexpr std::string_view kind_name = "cboMandant", client_name = "ctlMandant";
constexpr std::string_view years_name = "cboWirtschaftsjahr", last_account_name = "txtKLNr(1)";
constexpr std::string_view all_accounts = "1 bis 999999999: alle Konten";

bool has_fields(const Form& form, std::initializer_list<std::string_view> names) {
    return std::ranges::all_of(names, [&](std::string_view name) {
        return std::ranges::find(form.fields, name, &Field::name) != form.fields.end();
    });
}

/// A label behind the field, in its group.
void add_label(Form& form, std::string_view field, std::string_view text) {
    const auto place = std::ranges::find(form.fields, field, &Field::name);
    const auto index = static_cast<std::size_t>(place - form.fields.begin());
    form.fields.insert(place + 1, {.kind = FieldKind::label, .label = std::string(text)});
    for (Group& group : form.groups) {
        if (group.first > index)
            ++group.first;
        else if (index < group.first + group.count)
            ++group.count;
    }
}

/// The choice of a client is off in the same cases.
void switch_years_with_clients(Form& form) {
    Field& kind = form.field(kind_name);
    kind.changed = [&form, changed = std::move(kind.changed)] {
        notify(changed);
        form.field(years_name).enabled = form.field(client_name).enabled;
    };
}

}  // namespace

void FormAids::standard_setup(Form& form, int code) {
    display_.standard_setup(form, code);
    if (!has_fields(form, {kind_name, client_name, years_name, last_account_name})) return;
    add_label(form, last_account_name, all_accounts);
    switch_years_with_clients(form);
}

}  // namespace prot
