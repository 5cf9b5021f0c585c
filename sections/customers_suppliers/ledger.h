#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace prot::customers_suppliers {

/// The owner of this section's procedures in the source of an error.
inline constexpr std::string_view owner = "ProtKLCsvClass";

/// Customers and suppliers are kept alike; their tables and columns have names of their own.
struct Ledger {
    std::string_view msStammTabelle;  ///< the master table
    std::string_view msPsIdSpalte;    ///< its column of the person
    std::string_view msIdSpalte;      ///< of its own key
    std::string_view msNrSpalte;      ///< of the number
    std::string_view purposes;        ///< the table that links it to purposes of payment
    std::string_view purposes_owner;  ///< of that, the column of the customer or supplier
    std::string_view of_person;       ///< statement: name and number of the person {key}, live
};

inline constexpr std::int32_t section_of_suppliers = 8, section_of_customers = 9;

inline constexpr Ledger customers = {
    .msStammTabelle = "KUNDEN_V4",
    .msPsIdSpalte = "Ps_Id_Kunde",
    .msIdSpalte = "KUN_ID",
    .msNrSpalte = "KUN_NR",
    .purposes = "TKUNDVWZ",
    .purposes_owner = "FLKD",
    .of_person =
        "SELECT Personalie.Pl_Bezeichnung, Kun_Nr FROM  Person_v4"
        " INNER JOIN Personalie ON Person_v4.Ps_Id = Personalie.Ps_Id"
        " INNER JOIN Kunden_v4 ON Person_v4.Ps_Id = Kunden_v4.Ps_Id_Kunde"
        " WHERE  (Kunden_v4.Ps_Id_Kunde = {key})",
};

inline constexpr Ledger suppliers = {
    .msStammTabelle = "LIEFERANTEN_V4",
    .msPsIdSpalte = "Ps_Id_Lieferant",
    .msIdSpalte = "LIEF_ID",
    .msNrSpalte = "LIEF_NR",
    .purposes = "TLIEFVWZ",
    .purposes_owner = "FLLI",
    .of_person =
        "SELECT Personalie.Pl_Bezeichnung, Lief_Nr FROM  Person_v4"
        " INNER JOIN Personalie ON Person_v4.Ps_Id = Personalie.Ps_Id"
        " INNER JOIN Lieferanten_v4 ON Person_v4.Ps_Id = Lieferanten_v4.Ps_Id_Lieferant"
        " WHERE  (Lieferanten_v4.Ps_Id_Lieferant = {key})",
};

/// A pattern with the ledger's names in place of {master}, {person}, {id}, {number}, {purposes} and
/// {purposes_owner}. Other braces stay, such as {key}.
std::string named(std::string_view pattern, const Ledger& ledger);

/// A pattern with the key in place of {key}.
std::string keyed(std::string_view pattern, std::int32_t key);

/// `text` with `replacement` wherever `mark` stands.
std::string replaced(std::string text, std::string_view mark, std::string_view replacement);

}  // namespace prot::customers_suppliers
