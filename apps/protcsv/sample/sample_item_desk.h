#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "apps/protcsv/sample/sample_clients.h"
#include "apps/protcsv/sample/sample_items.h"

namespace prot::sample {

/// The desk where open items are kept: their present state, and the ways in which they change. Every change
/// keeps the present state and the log in step and returns its log row.
class ItemDesk {
public:
    /// rows: of the log to come; the more rows, the more clients and items there are from the start. clients:
    /// become those of this desk; they outlive it.
    ItemDesk(Random random, std::int64_t rows, ClientBook& clients);

    LogRow add_item(const Occasion& occasion);
    LogRow remove_item(const Occasion& occasion);
    LogRow rename_client(const Occasion& occasion, std::int32_t number, std::string_view short_name);

    LogRow change_dunning(const Occasion& occasion);  ///< block or level
    LogRow change_terms(const Occasion& occasion);    ///< amount, due date or discount
    LogRow change_text(const Occasion& occasion);

    /// Settled by a payment, or open again: only a link between items.
    LogRow settle(const Occasion& occasion);

    /// Saved without a change of content: only when and by whom.
    LogRow touch(const Occasion& occasion);

    /// Any one item changed by `change`, and stamped with the occasion.
    template <class Change>
    LogRow change_any(const Occasion& occasion, Change change) {
        return log_change(any_of(items_, random_), occasion, change);
    }

    /// Gives `number` to an item that has another value there.
    LogRow set_number(const Occasion& occasion, std::int32_t Item::*number, std::int32_t value);

    /// As set_number, logged with a column name and a former value that the item itself never has.
    LogRow set_number_logged_as(const Occasion& occasion, std::int32_t Item::*number, std::int32_t value,
                                std::string_view column, std::string_view former_value);

    Random& random() { return random_; }
    const ClientBook& clients() const { return clients_; }
    std::vector<Item> items() const;  ///< those that exist now, by key

private:
    Item& new_item(Day latest);
    const Client& any_client();
    Item& item_without(std::int32_t Item::*number, std::int32_t value);

    Random random_;
    ClientBook& clients_;
    std::vector<Item> items_;
    std::int32_t last_id_ = 0;
    std::int32_t last_document_ = 4710;
};

}  // namespace prot::sample
