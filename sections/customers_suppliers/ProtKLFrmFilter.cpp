#include "sections/customers_suppliers/ProtKLFrmFilter.h"

#include <algorithm>

namespace prot::customers_suppliers {

namespace {

constexpr KindChoice kinds[] = {
    {1, ClientKind::client},      {2, ClientKind::office}, {3, ClientKind::all_clients},
    {4, ClientKind::all_offices}, {5, ClientKind::all},
};

constexpr FilterTexts customer_texts = {
    .caption = "Protokollausgabe Kunden",
    .help_id = "HID_MIVRA_ALLGEMEIN_PROTOKOLLIERUNG_KUNDEN",
    .group = "Kunden",
    .from_label = "&von Kunden-Nr.",
    .to_label = "&bis Kunden-Nr.",
    .default_from = "10000",
    .default_to = "10001",
    .number = "Kunden-Nr: ",
};

constexpr FilterTexts supplier_texts = {
    .caption = "Protokollausgabe Lieferanten",
    .help_id = "HID_MIVRA_ALLGEMEIN_PROTOKOLLIERUNG_LIEFERANTEN",
    .group = "Lieferanten",
    .from_label = "&von Lieferanten-Nr.",
    .to_label = "&bis Lieferanten-Nr.",
    .default_from = "70000",
    .default_to = "70001",
    .number = "Lieferanten-Nr: ",
};

}  // namespace

ProtKLFrmFilter::ProtKLFrmFilter(Environment& environment, std::int32_t lSection, bool bLoeschen)
    : ClientRangeForm(environment, "ProtKLFrmFilter", kinds),
      texts_(lSection == section_of_customers ? customer_texts : supplier_texts),
      deleting_(bLoeschen) {}

Form ProtKLFrmFilter::described_form() {
    Form form;
    form.caption = texts_.caption;
    form.help_id = texts_.help_id;
    form.fields = {
        kind_field(),
        client_field(),
        number_field(0, texts_.from_label),
        number_field(1, texts_.to_label),
    };
    form.groups = {{"Mandant oder Kanzlei", 0, 2}, {std::string(texts_.group), 2, 2}};
    add_buttons(form, [this] { cmdOK_Click(); });
    return form;
}

void ProtKLFrmFilter::mInitMandKanz() { offer(deleting_, texts_.default_from, texts_.default_to); }

/// A text with "dsgvo" anywhere is never run without the form, deliberately.
FilterForm::BatchItems ProtKLFrmFilter::batch_items(const std::string& sCommandline) {
    BatchItems items = split_items(sCommandline);
    dsgvo_ = std::ranges::any_of(
        items.read, [this](const std::string& item) { return BatchItem(item, environment_).is("dsgvo"); });
    return items;
}

bool ProtKLFrmFilter::end_batch() {
    return ClientRangeForm::end_batch() && !dsgvo_ && selection(true).client.id > 0;
}

std::string ProtKLFrmFilter::take_over(bool by_batch) {
    const Selection selected = selection(by_batch);
    const NumberRange& range = selected.range;
    filter_ = {range.from, range.to, selected.client.id, selected.kind};
    return text_of(selected)
        .append(", von ")
        .append(texts_.number)
        .append(plain_number(range.from))
        .append(" bis ")
        .append(texts_.number)
        .append(plain_number(range.to));
}

}  // namespace prot::customers_suppliers
