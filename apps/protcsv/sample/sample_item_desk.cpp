#include "apps/protcsv/sample/sample_item_desk.h"

#include <algorithm>

namespace prot::sample {
namespace {

using std::chrono::days;

constexpr std::int64_t most_items = 50'000;
constexpr std::int64_t fewest_early_items = 120;

// No text is common: the column is NULL then.
constexpr std::string_view texts[] = {
    "Warenlieferung", "Abschlagsrechnung", "Miete", "Gutschrift Bonus", "Teilzahlung", "Reparatur", "", "",
};

// What a form proposes first is what a person looks at first: these accounts have the most items.
constexpr std::int32_t proposed_accounts[] = {10'000, 10'001};

constexpr std::int32_t discounts[] = {200, 250, 300};

std::int32_t any_account(Random& random) {
    if (random.percent(45)) return random.pick(proposed_accounts);
    const std::int32_t first = random.percent(70) ? 10'002 : 70'000;
    return first + static_cast<std::int32_t>(random.below(40));
}

std::int32_t any_kind(Random& random) {
    const std::int64_t dice = random.below(100);
    if (dice < 70) return 1;
    if (dice < 94) return 2;
    return dice < 97 ? 0 : 3;
}

}  // namespace

ItemDesk::ItemDesk(Random random, std::int64_t rows, ClientBook& clients)
    : random_(random), clients_(clients) {
    clients_ = ClientBook(random_, rows);
    const std::int64_t count = std::clamp(rows / 20, fewest_early_items, most_items / 2);
    for (std::int64_t number = 0; number < count; ++number) {
        Item& item = new_item(log_begin);
        item.changed = item.document_date + std::chrono::hours(9) + std::chrono::seconds(number % 30'000);
        item.employee = 3;
    }
}

LogRow ItemDesk::add_item(const Occasion& occasion) {
    if (static_cast<std::int64_t>(items_.size()) >= most_items) return remove_item(occasion);
    return log_creation(new_item(std::chrono::floor<days>(occasion.moment)), occasion);
}

LogRow ItemDesk::remove_item(const Occasion& occasion) { return log_deletion(items_, random_, occasion); }

LogRow ItemDesk::rename_client(const Occasion& occasion, std::int32_t number, std::string_view short_name) {
    Client& client = clients_.of_number(number);
    const Client before = client;
    client.short_name = short_name;
    return log_row(occasion, &before, &client);
}

LogRow ItemDesk::change_dunning(const Occasion& occasion) {
    return change_any(occasion, [&](Item& item) {
        if (random_.percent(60)) {
            item.dunning_level = (item.dunning_level + 1) % 4;
            if (random_.percent(80)) return;
        }
        item.dunning_block = (item.dunning_block + 1) % 12;
    });
}

LogRow ItemDesk::change_terms(const Occasion& occasion) {
    return change_any(occasion, [&](Item& item) {
        const std::int64_t dice = random_.below(100);
        if (dice < 50) item.amount += random_.between(1, 90'000) * (item.amount > 100'000 ? -1 : 1);
        if (dice >= 30 && item.due != Day()) item.due = item.document_date + days(random_.between(91, 120));
        if (dice >= 85) item.discount = item.discount == 0 ? random_.pick(discounts) : 0;
        item.import_mark = occasion.author.employee == 0 ? "Bankabruf" : "";
    });
}

LogRow ItemDesk::change_text(const Occasion& occasion) {
    return change_any(occasion, [&](Item& item) {
        const std::string_view before = item.text;
        while (item.text == before) item.text = random_.pick(texts);
    });
}

LogRow ItemDesk::settle(const Occasion& occasion) {
    return change_any(occasion, [&](Item& item) { item.settlement = item.settlement == 0 ? item.id : 0; });
}

LogRow ItemDesk::touch(const Occasion& occasion) {
    return change_any(occasion, [](Item&) {});
}

LogRow ItemDesk::set_number(const Occasion& occasion, std::int32_t Item::*number, std::int32_t value) {
    return log_change(item_without(number, value), occasion, [&](Item& item) { item.*number = value; });
}

LogRow ItemDesk::set_number_logged_as(const Occasion& occasion, std::int32_t Item::*number,
                                      std::int32_t value, std::string_view column,
                                      std::string_view former_value) {
    return logged_as(set_number(occasion, number, value), column, former_value, std::to_string(value));
}

std::vector<Item> ItemDesk::items() const { return by_key(items_); }

/// An item with a document of the year before `latest`.
Item& ItemDesk::new_item(Day latest) {
    const Client& client = any_client();
    const auto years = clients_.years_of(client);
    Item item;
    item.id = ++last_id_;
    item.document = random_.percent(95) ? ++last_document_ : 0;
    item.account = any_account(random_);
    item.kind = any_kind(random_);
    item.series = item.kind == 2 ? "ZE-" : "RE-";
    item.amount = random_.between(1'190, 1'500'000) * (item.kind == 2 ? -1 : 1);
    item.text = random_.pick(texts);
    item.document_date = latest - days(random_.between(1, 200));
    if (item.kind != 2) item.due = item.document_date + days(random_.between(14, 90));
    item.dunning_block = random_.percent(10) ? static_cast<std::int32_t>(random_.between(1, 4)) : 0;
    item.year_id = years.front().id;
    for (const FiscalYear& year : years) {
        const Period& period = ClientBook::periods()[year.period];
        if (year.type == YearType::ordinary && period.first <= item.document_date) item.year_id = year.id;
    }
    return items_.emplace_back(item);
}

/// Most items belong to a few clients, many of them to the first. A client without fiscal years has none.
const Client& ItemDesk::any_client() {
    const auto all = clients_.clients();
    for (;;) {
        const std::int64_t dice = random_.below(100);
        const std::size_t choice = dice < 25 ? 1 : dice < 70 ? ClientBook::busy_clients : all.size();
        const Client& client = random_.pick(all.first(choice));
        if (client.year_count > 0) return client;
    }
}

/// An item with another value; any one when there is none.
Item& ItemDesk::item_without(std::int32_t Item::*number, std::int32_t value) {
    const auto start = items_.begin() + (&any_of(items_, random_) - items_.data());
    const auto differs = [&](const Item& item) { return item.*number != value; };
    auto found = std::find_if(start, items_.end(), differs);
    if (found == items_.end()) found = std::find_if(items_.begin(), start, differs);
    return *found;
}

}  // namespace prot::sample
