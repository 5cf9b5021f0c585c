#include "sections/report_frameworks/ProtAuswFrmFilter.h"

#include <algorithm>
#include <optional>

#include "core/Prot0000UtilitiesBAS.h"
#include "core/ZQErrorHandling.h"
#include "platform/automation/letter_case.h"
#include "platform/automation/text_parts.h"
#include "sections/report_frameworks/framework_lists.h"
#include "sections/report_frameworks/framework_selection.h"

namespace prot::report_frameworks {

namespace {

/// The two option buttons of one choice.
constexpr std::string_view kind_options = "optStandard/optKanzlei";
constexpr std::string_view type_list = "cboRahmenArt", framework_list = "cboAuswertungsrahmen",
                           change_list = "cboAenderungen", chart_list = "cboKontenrahmen";

constexpr std::int64_t all = 0;

/// The first entry whose text in lower case meets the condition.
template <class Condition>
std::optional<std::size_t> entry_of(const Field& list, Condition condition) {
    const auto found = std::ranges::find_if(
        list.entries, [&](const Entry& entry) { return condition(to_lower(entry.text)); });
    if (found == list.entries.end()) return std::nullopt;
    return static_cast<std::size_t>(found - list.entries.begin());
}

std::optional<std::size_t> entry_named(const Field& list, const std::string& value) {
    return entry_of(list, [wanted = to_lower(value)](const std::string& text) { return text == wanted; });
}

}  // namespace

constexpr ProtAuswFrmFilter::BatchChoice ProtAuswFrmFilter::batch_choices[] = {
    {kind_options, &ProtAuswFrmFilter::read_kind},        {type_list, &ProtAuswFrmFilter::read_type},
    {framework_list, &ProtAuswFrmFilter::read_framework}, {change_list, &ProtAuswFrmFilter::read_change_kind},
    {chart_list, &ProtAuswFrmFilter::read_chart},
};

ProtAuswFrmFilter::ProtAuswFrmFilter(Environment& environment, ChangeKind mlAenderungsart)
    : FilterForm(environment, "ProtAuswFrmFilter"), proposed_change_(mlAenderungsart) {}

Form ProtAuswFrmFilter::described_form() {
    Form form;
    form.caption = "Protokollausgabe Auswertungsrahmen";
    form.help_id = "HID_MIVRA_ALLGEMEIN_PROTOKOLLIERUNG_AUSWERTUNGSRAHMEN2FZUORDNUNGEN";
    form.fields = {
        {.kind = FieldKind::options,
         .name = std::string(kind_options),
         .label = "&Herkunft",
         .changed = [this] { key_of(kind_options) == 0 ? optStandard_Click() : optKanzlei_Click(); }},
        {.name = std::string(type_list),
         .label = "&Auswertung",
         .changed = [this] { cboRahmenArt_Change(); }},
        {.name = std::string(framework_list), .label = "Auswertungs&rahmen", .refilled = true},
        {.name = std::string(change_list),
         .label = "Änder&ungen",
         .changed = [this] { cboAenderungen_Change(); }},
        {.name = std::string(chart_list), .label = "&Kontenrahmen"},
    };
    form.groups = {{"Rahmen", 0, 3}, {"Umfang", 3, 2}};
    add_buttons(form, [this] { cmdOK_Click(); });
    return form;
}

void ProtAuswFrmFilter::fill() {
    mCBOBasisFuellen();
    mRahmenFuellen();
    mShowKontorahmen();
}

/// The lists that depend on nothing. What the last call chose is proposed by its place in the list, which is
/// not that of its code for columns and line kinds, deliberately.
void ProtAuswFrmFilter::mCBOBasisFuellen() {
    for (const FrameworkKind& kind : framework_kinds)
        field(kind_options).add(kind.ARa_Typ, std::string(kind.text));
    for (const FrameworkType& type : framework_types)
        field(type_list).add(type.ARa_Art, std::string(type.list_text));
    for (const ChangeKindTexts& change : change_kinds)
        field(change_list).add(static_cast<std::int64_t>(change.kind), std::string(change.list_text));
    field(kind_options).selected = field(type_list).selected = 0;
    field(change_list).selected = static_cast<std::size_t>(proposed_change_);
}

/// The frameworks of the chosen type and kind, those that exist before those that were deleted.
void ProtAuswFrmFilter::mRahmenFuellen() try {
    Field& list = field(framework_list);
    list.entries = {{all, "Alle"}};
    list.selected = 0;
    const Filter chosen = filter();
    if (chosen.mlAuswertungsart >= 0)
        for (const ListedFramework& each : live_frameworks(chosen, *database_))
            list.add(each.ARa_Id, each.name + msGueltigKeit(each.ddGueltigVon, each.ddGueltigBis));
    mLoesAuswRahmen();
} catch (...) {
    fail("mRahmenFuellen");
}

void ProtAuswFrmFilter::mLoesAuswRahmen() try {
    for (const ListedFramework& each : deleted_frameworks(filter(), *database_, environment_))
        field(framework_list).add(each.ARa_Id, each.name + " (gelöscht)");
} catch (...) {
    fail("mLoesAuswRahmen");
}

/// The charts of accounts, read once, are a choice only where account assignments are among the changes.
void ProtAuswFrmFilter::mShowKontorahmen() try {
    Field& charts = field(chart_list);
    if (charts.entries.empty()) {
        charts.entries = charts_of_accounts(*database_);
        charts.entries.insert(charts.entries.begin(), {all, "Alle"});
        charts.selected = 0;
    }
    charts.visible = concerns_charts(filter().mlAenderungsart);
} catch (...) {
    fail("mShowKontorahmen");
}

void ProtAuswFrmFilter::optStandard_Click() { kind_chosen(); }
void ProtAuswFrmFilter::optKanzlei_Click() { kind_chosen(); }

void ProtAuswFrmFilter::kind_chosen() {
    mRahmenFuellen();
    mShowKontorahmen();
}

void ProtAuswFrmFilter::cboRahmenArt_Change() { mRahmenFuellen(); }
void ProtAuswFrmFilter::cboAenderungen_Change() { mShowKontorahmen(); }

/// Every list on view needs a choice.
void ProtAuswFrmFilter::cmdOK_Click() try {
    const auto undecided = std::ranges::find_if(
        form_.fields, [](const Field& each) { return each.can_have_focus() && !each.selected; });
    if (undecided == form_.fields.end()) {
        accept();
        return;
    }
    std::string text = "Im Feld '";
    text.append(without_access_key(undecided->label)).append("' ist kein Eintrag gewählt!");
    refuse(text, not_allowed, static_cast<std::size_t>(undecided - form_.fields.begin()));
} catch (...) {
    fail("cmdOK_Click");
}

void ProtAuswFrmFilter::begin_batch() { rejected_ = batch_chart_ = false; }

BatchReading ProtAuswFrmFilter::read_value(std::string_view key, const std::string& value) {
    const auto index = static_cast<std::size_t>(std::ranges::find(keys, key) - std::begin(keys));
    const BatchChoice& choice = batch_choices[index];
    const Use use = (this->*choice.read)(value);
    if (use != Use::taken) return BatchReading::of(use);
    return BatchReading::taken(value, field(choice.list).selected_text());
}

/// Which changes are chosen may stand behind the chart.
bool ProtAuswFrmFilter::end_batch() {
    if (batch_chart_ && !concerns_charts(filter().mlAenderungsart))
        environment_.notices.batch_item(BatchReading::of(Use::idle, chart_key));
    return !rejected_;
}

/// A value that is no kind of framework shows the form; what follows is read all the same.
BatchReading::Use ProtAuswFrmFilter::read_kind(const std::string& value) {
    if (value.empty()) return Use::passed_over;
    const std::string wanted = to_lower(value);
    const auto kind =
        std::ranges::find(framework_kinds, std::string_view(wanted), &FrameworkKind::batch_value);
    rejected_ = rejected_ || kind == std::end(framework_kinds);
    if (kind == std::end(framework_kinds)) return Use::passed_over;
    field(kind_options).choose(static_cast<std::size_t>(kind - std::begin(framework_kinds)));
    return Use::taken;
}

BatchReading::Use ProtAuswFrmFilter::read_type(const std::string& value) {
    const std::optional<std::size_t> type = entry_named(field(type_list), value);
    if (!type) return Use::absent;
    field(type_list).selected = type;
    cboRahmenArt_Change();
    return Use::taken;
}

/// The name may be cut short: the first framework that begins so. There are none to choose before their type
/// is.
BatchReading::Use ProtAuswFrmFilter::read_framework(const std::string& value) {
    Field& list = field(framework_list);
    const std::string wanted(trim_blanks(to_lower(value)));
    const auto found = entry_of(list, [&](const std::string& text) { return text.starts_with(wanted); });
    if (!found) return filter().mlAuswertungsart < 0 ? Use::idle : Use::absent;
    list.selected = found;
    return Use::taken;
}

BatchReading::Use ProtAuswFrmFilter::read_change_kind(const std::string& value) {
    const std::string wanted = to_lower(value);
    const auto change =
        std::ranges::find(change_kinds, std::string_view(wanted), &ChangeKindTexts::batch_value);
    if (change == std::end(change_kinds)) return Use::passed_over;
    field(change_list).choose(static_cast<std::size_t>(change - std::begin(change_kinds)));
    return Use::taken;
}

BatchReading::Use ProtAuswFrmFilter::read_chart(const std::string& value) {
    const auto chart = entry_named(field(chart_list), value);
    if (!chart) return Use::absent;
    field(chart_list).selected = chart;
    batch_chart_ = *chart > 0;
    return Use::taken;
}

std::string ProtAuswFrmFilter::take_over(bool /*by_batch*/) {
    framework_ids_ = framework_ids(filter());
    return mInfoAufbereiten();
}

std::string ProtAuswFrmFilter::mInfoAufbereiten() try {
    const Filter chosen = filter();
    std::string text = field(kind_options).selected_text();
    if (chosen.mlAuswertungsrahmen != 0)
        text += ": " + field(framework_list).selected_text();
    else
        text.append(", ").append(framework_type(chosen.mlAuswertungsart).filter_text);
    const auto change = std::ranges::find(change_kinds, chosen.mlAenderungsart, &ChangeKindTexts::kind);
    text.append(", ").append(change->filter_text);
    if (!concerns_charts(chosen.mlAenderungsart)) return text;
    if (chosen.mlKontenrahmen == all) return text + ", für alle Kontenrahmen";
    return text + ", für Kontenrahmen: " + field(chart_list).selected_text();
} catch (...) {
    fail("mInfoAufbereiten");
    return {};
}

Filter ProtAuswFrmFilter::filter() const {
    return {
        .mlAuswertungsrahmen = static_cast<std::int32_t>(key_of(framework_list)),
        .mlAuswertungsart = static_cast<std::int32_t>(key_of(type_list)),
        .mbyRahmenTyp = static_cast<std::uint8_t>(key_of(kind_options)),
        .mlKontenrahmen = static_cast<std::int32_t>(key_of(chart_list)),
        .mlAenderungsart = static_cast<ChangeKind>(key_of(change_list)),
    };
}

/// Of the selected entry; the widest choice's when none is.
std::int64_t ProtAuswFrmFilter::key_of(std::string_view list) const {
    const Field& choice = form_.field(list);
    if (choice.selected) return choice.entries[*choice.selected].key;
    return list == type_list ? all_types : all;
}

}  // namespace prot::report_frameworks
