#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "apps/protcsv/sample/sample_records.h"

/// Customers and suppliers of a sample database, together: partners. They differ in names and numbers only.
namespace prot::sample {

enum class Side : std::size_t { customers, suppliers };

/// A text for each side.
using BothSides = std::array<std::string_view, 2>;

inline std::string_view of_side(const BothSides& texts, Side side) {
    return texts[static_cast<std::size_t>(side)];
}

/// A row of KUNDEN_V4 or LIEFERANTEN_V4. Empty texts are NULL in the table.
struct Partner {
    Side side = Side::customers;
    std::int32_t id = 0;      ///< KUN_ID
    std::int32_t number = 0;  ///< KUN_NR; each client counts its own
    std::int32_t person_id = 0;
    std::int32_t client_id = 0;             ///< Ps_Id of the client
    std::int32_t terms = 0;                 ///< KLKD_ID; 0: none
    std::optional<std::int32_t> dunning;    ///< MB_ID; 0: none
    std::optional<std::int32_t> texts;      ///< MTH_ID; 0: none
    std::optional<std::int32_t> regulator;  ///< the person of the partner who pays for this one; 0: none
    std::int64_t limit = 0;                 ///< in cents; 0: NULL
    std::int32_t discount = 0;              ///< in 1/100 percent; 0: NULL
    std::string reference;                  ///< the client's number there
    std::string_view note;
    std::string_view import_mark;
    std::string_view memo;  ///< long text
    Moment changed;
    std::int32_t employee = 0;
};

/// A purpose of payment that a partner uses.
struct PurposeLink {
    Side side = Side::customers;
    std::int32_t partner_id = 0;
    std::int32_t purpose_id = 0;
};

LogRow log_row(const Occasion& occasion, const Partner* before, const Partner* after);
LogRow log_row(const Occasion& occasion, const PurposeLink* before, const PurposeLink* after);

struct PartnerColumn {
    BothSides name;
    std::string_view type;  ///< in the table
    BothSides caption;      ///< empty: none
    std::string (*text)(const Partner& partner);
    bool is_memo = false;
};

/// Of the partners' tables, in their order.
std::span<const PartnerColumn> partner_columns();

inline constexpr BothSides partner_table = {"KUNDEN_V4", "LIEFERANTEN_V4"};
inline constexpr BothSides purpose_link_table = {"TKUNDVWZ", "TLIEFVWZ"};
inline constexpr BothSides purpose_link_key = {"FLKD", "FLLI"};

}  // namespace prot::sample
