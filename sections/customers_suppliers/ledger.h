#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace prot::customers_suppliers {

/// The owner of this section's procedures in the source of an error.
inline constexpr std::string_view owner = "ProtKLCsvClass";

/// Customers and suppliers are kept alike; their tables and columns have names of their own.
struct Ledger {
    std::string_view msStammTabelle;                 ///< the master table
    std::string_view msPsIdSpalte;                   ///< its column of the person
    std::string_view msIdSpalte;                     ///< of its own key
    std::string_view msNrSpalte;                     ///< of the number
    std::string_view spelled_table, spelled_number;  ///< both, as the statement about a person has them
    std::string_view purposes;                       ///< the table that links it to purposes of payment
    std::string_view purposes_owner;                 ///< of that, the column of the customer or supplier
    std::string_view file_word;                      ///< in the name of the file
    std::array<std::string_view, 2> captions;        ///< of the cells before the common ones
};

inline constexpr Ledger customers = {
    .msStammTabelle = "KUNDEN_V4",
    .msPsIdSpalte = "Ps_Id_Kunde",
    .msIdSpalte = "KUN_ID",
    .msNrSpalte = "KUN_NR",
    .spelled_table = "Kunden_v4",
    .spelled_number = "Kun_Nr",
    .purposes = "TKUNDVWZ",
    .purposes_owner = "FLKD",
    .file_word = "Kunden",
    .captions = {"Kunden-Nr", "Bezeichnung"},
};

inline constexpr Ledger suppliers = {
    .msStammTabelle = "LIEFERANTEN_V4",
    .msPsIdSpalte = "Ps_Id_Lieferant",
    .msIdSpalte = "LIEF_ID",
    .msNrSpalte = "LIEF_NR",
    .spelled_table = "Lieferanten_v4",
    .spelled_number = "Lief_Nr",
    .purposes = "TLIEFVWZ",
    .purposes_owner = "FLLI",
    .file_word = "Lieferanten",
    .captions = {"Lieferanten-Nr", "Bezeichnung"},
};

inline constexpr std::int32_t section_of_suppliers = 8, section_of_customers = 9;

/// Of any section but that of the customers it is the suppliers'.
constexpr const Ledger& ledger_of(std::int32_t lSection) {
    return lSection == section_of_customers ? customers : suppliers;
}

/// A pattern with the ledger's names in place of {master}, {person}, {id}, {number}, {spelled_table},
/// {spelled_number}, {purposes} and {purposes_owner}. Other braces stay, such as {key}.
std::string named(std::string_view pattern, const Ledger& ledger);

/// A pattern with the key in place of {key}.
std::string keyed(std::string_view pattern, std::int32_t key);

}  // namespace prot::customers_suppliers
