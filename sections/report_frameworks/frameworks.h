#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// What the report frameworks' log tells apart, and what a person chooses of it.
namespace prot::report_frameworks {

/// The owner of this section's procedures in the source of an error.
inline constexpr std::string_view owner = "ProtAuswCsvClass";

/// A type of framework (ARa_Art).
struct FrameworkType {
    std::string_view list_text;  ///< in the form
    std::int32_t ARa_Art;
    std::string_view file_word;    ///< in the name of the file
    std::string_view filter_text;  ///< in its first line
};

inline constexpr std::int32_t all_types = -1;

/// In the order of the form.
inline constexpr FrameworkType framework_types[] = {
    {"Alle", all_types, "Auswertungs_Rahmen", "Auswertungsrahmen"},
    {"Bilanz", 0, "Bilanz_Rahmen", "Bilanz"},
    {"Betriebsabrechnungsbogen", 10, "BAB_Rahmen", "BAB"},
    {"Betriebswirtschaftliche Auswertung", 20, "BWA_Rahmen", "BWA"},
    {"Anlagenspiegel", 30, "Anlagenspiegel_Rahmen", "Anlagenspiegel"},
    {"Kapitalflussrechnung", 50, "Kapitalflussrechnung_Rahmen", "Kapitalflussrechnung"},
    {"Kapitalkontenentwicklung", 40, "Kapitalkontenentwicklung_Rahmen", "Kapitalkontenentwicklung"},
    {"Ergebnisverwendung", 45, "Ergebnisverwendung_Rahmen", "Ergebnisverwendung"},
    {"Liquiditätsvorschau", 60, "Liquiditaetsvorschau_Rahmen", "Liquiditätsvorschau"},
    {"Rating", 70, "Rating_Rahmen", "Rating"},
    {"Liquidität", 55, "Liquiditaet_Rahmen", "Liquidität"},
};

/// Any code that is not in the list counts as all types.
constexpr const FrameworkType& framework_type(std::int32_t ARa_Art) {
    for (const FrameworkType& type : framework_types)
        if (type.ARa_Art == ARa_Art) return type;
    return framework_types[0];
}

/// A kind of framework (ARa_Typ): delivered with the suite, or the office's own.
struct FrameworkKind {
    std::string_view text;
    std::uint8_t ARa_Typ;
    std::string_view batch_value;
};

inline constexpr FrameworkKind framework_kinds[] = {
    {"Standardrahmen", 0, "s"},
    {"Kanzleirahmen", 1, "k"},
};

/// What of a framework has changed.
enum class ChangeKind : std::int32_t { all, assignments, positions, line_kinds, columns };

struct ChangeKindTexts {
    std::string_view list_text;
    ChangeKind kind;
    std::string_view batch_value;
    std::string_view filter_text;
};

/// In the order of the form, which is not that of the codes.
inline constexpr ChangeKindTexts change_kinds[] = {
    {"Alles", ChangeKind::all, "alle", "alle Änderungen"},
    {"Kontozuordnungen", ChangeKind::assignments, "kto", "nur Änderungen der Kontozuordnungen"},
    {"Positionen", ChangeKind::positions, "pos", "nur Positionsänderungen"},
    {"Spalten", ChangeKind::columns, "sp", "nur Spaltenänderungen"},
    {"Zeilenarten", ChangeKind::line_kinds, "za", "nur Änderungen der Zeilenarten"},
};

/// Whether a chart of accounts may be chosen: account assignments are among the changes.
constexpr bool concerns_charts(ChangeKind kind) {
    return kind == ChangeKind::all || kind == ChangeKind::assignments;
}

/// The selection of an accepted filter.
struct Filter {
    std::int32_t mlAuswertungsrahmen = 0;  ///< id of the one framework; 0 for all
    std::int32_t mlAuswertungsart = all_types;
    std::uint8_t mbyRahmenTyp = 0;
    std::int32_t mlKontenrahmen = 0;  ///< id of the one chart of accounts; 0 for all
    ChangeKind mlAenderungsart = ChangeKind::all;
};

}  // namespace prot::report_frameworks
