#include "sections/report_frameworks/framework_selection.h"

#include <utility>

#include "core/ZQErrorHandling.h"
#include "platform/automation/text_parts.h"

namespace prot::report_frameworks {

namespace {

/// One part of the condition. Its marks: {live}, the ids of the chosen frameworks as they were handed over;
/// the ids of what has been logged below them; {of chart}, the restriction to a chart of accounts. A piece
/// ends with the parenthesis of its last group; the first group's is opened by what stands before it.
struct Piece {
    std::string_view procedure;
    ChangeKind kind;  ///< besides ChangeKind::all, which takes every piece
    std::string_view text;
};

// The position piece alone opens without OR when it is one of several, so it comes first. The framework table
// stands unjoined beside the others where account assignments and cells are looked for by the live tables;
// that repeats ids within a set, no more. The ids handed over bring parentheses of their own, which some
// groups double.
constexpr Piece pieces[] = {
    {"msWHERE_Position", ChangeKind::positions,
     "dcTable = 'AUSWERTUNGSPOSITION' AND dlSuchId1 IN (SELECT ZA_ID FROM ZEILENART WHERE ARA_ID IN {live}))"
     " OR (dcTable = 'AUSWERTUNGSPOSITION' AND dlSuchId1 IN ({logged line kinds}))"},
    {"msWHERE_Kontozuordnung", ChangeKind::assignments,
     "dcTable = 'FORMEL_POSITION' {of chart}AND dlSuchId2 IN (SELECT AUSWERTUNGSPOSITION.AP_ID"
     " FROM AUSWERTUNGSRAHMEN, AUSWERTUNGSPOSITION, ZEILENART, FORMEL_POSITION"
     " WHERE AUSWERTUNGSPOSITION.AP_ID = FORMEL_POSITION.AP_ID"
     " AND AUSWERTUNGSPOSITION.ZA_ID = ZEILENART.ZA_ID AND ZEILENART.ARA_ID IN {live}))"
     " OR (dcTable = 'FORMEL_POSITION' {of chart}AND dlSuchId2 IN"
     " (SELECT dlPrimaryKey1 FROM tProtokoll WHERE dcTable = 'AUSWERTUNGSPOSITION' AND dlSuchId1 IN"
     " (SELECT ZA_ID FROM AUSWERTUNGSRAHMEN, ZEILENART"
     " WHERE ZEILENART.ARA_ID = AUSWERTUNGSRAHMEN.ARA_ID AND ZEILENART.ARA_ID IN {live})))"
     " OR (dcTable = 'FORMEL_POSITION' {of chart}AND dlSuchId2 IN ({logged positions}))"},
    {"msWHERE_Spalten", ChangeKind::columns,
     "dcTable = 'SPALTENFORMATE' AND dlSuchId2 IN"
     " (SELECT ZEILENART.ZA_ID FROM ZEILENART WHERE ZEILENART.ARA_ID IN {live}))"
     " OR (dcTable = 'SPALTENFORMATE' AND dlSuchId2 IN ({logged line kinds}))"
     " OR (dcTable = 'AUSWERTUNGSSPALTE' AND dlSuchId1 IN"
     " (SELECT AUSWERTUNGSART.AA_ID FROM AUSWERTUNGSART WHERE AUSWERTUNGSART.ARA_ID IN {live}))"
     " OR (dcTable = 'AUSWERTUNGSSPALTE' AND dlSuchId1 IN ({logged report kinds}))"},
    {"msWHERE_Zeilenarten", ChangeKind::line_kinds,
     "dcTable = 'ZEILENART' AND dlSuchId1 IN ({live}))"
     " OR (dcTable = 'ZEILENART' AND dlSuchId1 IN ( {logged frameworks}))"},
    {"msWHERE_Alles", ChangeKind::all,
     "dcTable = 'AUSWERTUNGSZELLE' AND dlSuchId1 IN (SELECT AUSWERTUNGSPOSITION.AP_ID"
     " FROM AUSWERTUNGSRAHMEN, AUSWERTUNGSPOSITION, ZEILENART"
     " WHERE AUSWERTUNGSPOSITION.ZA_ID = ZEILENART.ZA_ID AND ZEILENART.ARA_ID IN {live}))"
     " OR (dcTable = 'AUSWERTUNGSZELLE' AND dlSuchId1 IN ({logged positions}))"},
};

constexpr Piece deletion = {"msWHERE_Loeschen", ChangeKind::all,
                            "dcTable = 'AUSWERTUNGSRAHMEN'  AND dlPrimaryKey1 IN ({live}))"
                            " OR (dcTable = 'AUSWERTUNGSDICHTE'  AND dlSuchId1 IN ({live}))"
                            " OR (dcTable = 'AUSWERTUNGSART'  AND dlSuchId1 IN ({live}))"};

/// The ids of a table's log rows that meet a condition.
std::string logged(std::string_view table, std::string_view condition) {
    return std::string("SELECT dlPrimaryKey1 FROM tProtokoll WHERE dcTable = '")
        .append(table)
        .append("' AND ")
        .append(condition);
}

/// What stands for the marks of the pieces.
class Marks {
public:
    Marks(const Filter& filter, std::string_view sRahmenIds) {
        const std::string frameworks = logged("AUSWERTUNGSRAHMEN", msSQL_ARaArt(filter));
        const std::string of_frameworks = "dlSuchId1 IN ( " + frameworks + ")";
        const std::string line_kinds = logged("ZEILENART", of_frameworks);
        const std::string chart = filter.mlKontenrahmen == 0
                                      ? " "
                                      : " AND dlSuchId1 = " + std::to_string(filter.mlKontenrahmen) + " ";
        marks_[0] = {"{live}", std::string(sRahmenIds)};
        marks_[1] = {"{of chart}", chart};
        marks_[2] = {"{logged frameworks}", frameworks};
        marks_[3] = {"{logged line kinds}", line_kinds};
        marks_[4] = {"{logged report kinds}", logged("AUSWERTUNGSART", of_frameworks)};
        marks_[5] = {"{logged positions}",
                     logged("AUSWERTUNGSPOSITION", "dlSuchId1 IN (" + line_kinds + ")")};
    }

    std::string filled(const Piece& piece) const try {
        std::string text(piece.text);
        for (const auto& [mark, words] : marks_) text = replaced(std::move(text), mark, words);
        return text;
    } catch (...) {
        leave(owner, piece.procedure);
    }

private:
    std::pair<std::string_view, std::string> marks_[6];
};

}  // namespace

std::string framework_ids(const Filter& filter) {
    const std::string from = "(SELECT Auswertungsrahmen.ARa_Id FROM Auswertungsrahmen WHERE ";
    const std::string kind = "Auswertungsrahmen.ARa_Typ = " + std::to_string(filter.mbyRahmenTyp) + ")";
    if (filter.mlAuswertungsrahmen != 0)
        return from + "Auswertungsrahmen.ARa_Id = " + std::to_string(filter.mlAuswertungsrahmen) + ")";
    if (filter.mlAuswertungsart >= 0)
        return from + "Auswertungsrahmen.ARa_Art = " + std::to_string(filter.mlAuswertungsart) + " AND " +
               kind;
    return from + kind;
}

std::string msWHERE(const Filter& filter, std::string_view sRahmenIds, bool pbLoeschen) try {
    const Marks marks(filter, sRahmenIds);
    std::string condition = " (";
    const char* opener = "(";
    const auto append = [&](const Piece& piece) {
        condition.append(opener).append(marks.filled(piece));
        opener = " OR (";
    };
    for (const Piece& piece : pieces)
        if (filter.mlAenderungsart == ChangeKind::all || filter.mlAenderungsart == piece.kind) append(piece);
    if (pbLoeschen) append(deletion);
    return condition + ")";
} catch (...) {
    leave(owner, "msWHERE");
}

std::string msSQL_ARaArt(const Filter& filter) try {
    if (filter.mlAuswertungsrahmen != 0) return "dlSuchId1 = " + std::to_string(filter.mlAuswertungsrahmen);
    const std::string kind = "dlSuchId3 = " + std::to_string(filter.mbyRahmenTyp);
    if (filter.mlAuswertungsart < 0) return kind;
    return "dlSuchId2 = " + std::to_string(filter.mlAuswertungsart) + " AND " + kind;
} catch (...) {
    leave(owner, "msSQL_ARaArt");
}

}  // namespace prot::report_frameworks
