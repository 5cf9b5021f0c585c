#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "apps/protcsv/sample/sample_partners.h"

/// The lists that customers and suppliers refer to. Each side keeps its own entries; a few terms of payment,
/// which the customers' side keeps, are used by both.
namespace prot::sample {

/// Terms of payment, a row of TKULIEFKOND.
struct Terms {
    std::int32_t id = 0;  ///< IDKLK
    std::string_view name;
    std::int32_t due_days = 0;          ///< diTageZahlungsziel
    std::int32_t days1 = 0, rate1 = 0;  ///< cash discount; rate in 1/100 percent
    std::int32_t days2 = 0, rate2 = 0;  ///< a second one
    std::int32_t type = 0;              ///< diTyp: 0 for both sides, 1 customers, 2 suppliers
    bool exists = true;
    Moment changed = log_begin;
    std::int32_t employee = 3;
};

enum class ListKind : std::size_t { purposes, text_groups, dunning };
inline constexpr std::array<std::string_view, 3> list_tables = {"TVERWENDZWECK", "TTEXTHAUPTGRUPPE",
                                                                "MAHNBEDINGUNGEN_V4"};

/// An entry of a list that has nothing but names.
struct ListEntry {
    ListKind list = ListKind::purposes;
    std::int32_t id = 0;
    std::string_view name;
    bool exists = true;
};

struct Bank {
    std::int32_t id = 0;    ///< idBank
    std::string_view code;  ///< dcBLZ; empty: NULL
    std::string_view name;
    bool exists = true;
};

LogRow log_row(const Occasion& occasion, const Terms* before, const Terms* after);
LogRow log_row(const Occasion& occasion, const ListEntry* before, const ListEntry* after);
LogRow log_row(const Occasion& occasion, const Bank* before, const Bank* after);

/// The lists of one side. The story changes the first entries of each; everybody uses the others.
struct PartnerLists {
    explicit PartnerLists(Side side);

    static constexpr std::size_t entries_of_the_story = 3;

    std::vector<ListEntry>& of(ListKind kind) { return entries[static_cast<std::size_t>(kind)]; }

    std::vector<Terms> terms;
    std::array<std::vector<ListEntry>, list_tables.size()> entries;  ///< by ListKind
    std::vector<Bank> banks;

    std::vector<std::int32_t> usual_terms;  ///< ids: of this side's and of those for both
};

/// The entries that are not the story's own.
template <class Record>
std::span<Record> usual(std::vector<Record>& list) {
    return std::span(list).subspan(PartnerLists::entries_of_the_story);
}

/// Terms of payment for both sides.
inline constexpr std::int32_t shared_terms = 31;

}  // namespace prot::sample
