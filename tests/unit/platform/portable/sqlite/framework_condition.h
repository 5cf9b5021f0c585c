#pragma once

#include <string>

namespace prot {

/// The condition on the log that selects what belongs to the report frameworks of type 1 and kind 0, as a
/// deletion of all of it sends it: through the live tables, and through the log where parents are deleted.
struct FrameworkCondition {
    static std::string logged(const std::string& table) {
        return "SELECT dlPrimaryKey1 FROM tProtokoll WHERE dcTable = '" + table + "' AND ";
    }

    const std::string chosen =
        "(SELECT Auswertungsrahmen.ARa_Id FROM Auswertungsrahmen WHERE Auswertungsrahmen.ARa_Art = 1 AND "
        "Auswertungsrahmen.ARa_Typ = 0)";
    const std::string chosen_in_log =
        "dlSuchId1 IN ( " + logged("AUSWERTUNGSRAHMEN") + "dlSuchId2 = 1 AND dlSuchId3 = 0";

    const std::string positions =
        "(dcTable = 'AUSWERTUNGSPOSITION' AND dlSuchId1 IN (SELECT ZA_ID FROM ZEILENART WHERE ARA_ID IN " +
        chosen + ")) OR (dcTable = 'AUSWERTUNGSPOSITION' AND dlSuchId1 IN (" + logged("ZEILENART") +
        chosen_in_log + ")))";
    const std::string live_accounts =
        "SELECT AUSWERTUNGSPOSITION.AP_ID FROM AUSWERTUNGSRAHMEN, AUSWERTUNGSPOSITION, ZEILENART, "
        "FORMEL_POSITION WHERE AUSWERTUNGSPOSITION.AP_ID = FORMEL_POSITION.AP_ID AND "
        "AUSWERTUNGSPOSITION.ZA_ID = ZEILENART.ZA_ID AND ZEILENART.ARA_ID IN " +
        chosen;
    const std::string accounts =
        " OR (dcTable = 'FORMEL_POSITION'  AND dlSuchId2 IN (" + live_accounts +
        ")) OR (dcTable = 'FORMEL_POSITION'  AND dlSuchId2 IN (" + logged("AUSWERTUNGSPOSITION") +
        "dlSuchId1 IN (SELECT ZA_ID FROM AUSWERTUNGSRAHMEN, ZEILENART WHERE ZEILENART.ARA_ID = "
        "AUSWERTUNGSRAHMEN.ARA_ID AND ZEILENART.ARA_ID IN " +
        chosen + "))) OR (dcTable = 'FORMEL_POSITION'  AND dlSuchId2 IN (" + logged("AUSWERTUNGSPOSITION") +
        "dlSuchId1 IN (" + logged("ZEILENART") + chosen_in_log + "))))";
    const std::string columns =
        " OR (dcTable = 'SPALTENFORMATE' AND dlSuchId2 IN (SELECT ZEILENART.ZA_ID FROM ZEILENART WHERE "
        "ZEILENART.ARA_ID IN " +
        chosen + ")) OR (dcTable = 'SPALTENFORMATE' AND dlSuchId2 IN (" + logged("ZEILENART") +
        chosen_in_log +
        "))) OR (dcTable = 'AUSWERTUNGSSPALTE' AND dlSuchId1 IN (SELECT AUSWERTUNGSART.AA_ID FROM "
        "AUSWERTUNGSART WHERE AUSWERTUNGSART.ARA_ID IN " +
        chosen + ")) OR (dcTable = 'AUSWERTUNGSSPALTE' AND dlSuchId1 IN (" + logged("AUSWERTUNGSART") +
        chosen_in_log + ")))";
    const std::string line_kinds = " OR (dcTable = 'ZEILENART' AND dlSuchId1 IN (" + chosen +
                                   ")) OR (dcTable = 'ZEILENART' AND " + chosen_in_log + "))";
    const std::string live_cells =
        "SELECT AUSWERTUNGSPOSITION.AP_ID FROM AUSWERTUNGSRAHMEN, AUSWERTUNGSPOSITION, ZEILENART WHERE "
        "AUSWERTUNGSPOSITION.ZA_ID = ZEILENART.ZA_ID AND ZEILENART.ARA_ID IN " +
        chosen;
    const std::string cells = " OR (dcTable = 'AUSWERTUNGSZELLE' AND dlSuchId1 IN (" + live_cells +
                              ")) OR (dcTable = 'AUSWERTUNGSZELLE' AND dlSuchId1 IN (" +
                              logged("AUSWERTUNGSPOSITION") + "dlSuchId1 IN (" + logged("ZEILENART") +
                              chosen_in_log + "))))";
    const std::string frameworks = " OR (dcTable = 'AUSWERTUNGSRAHMEN'  AND dlPrimaryKey1 IN (" + chosen +
                                   ")) OR (dcTable = 'AUSWERTUNGSDICHTE'  AND dlSuchId1 IN (" + chosen +
                                   ")) OR (dcTable = 'AUSWERTUNGSART'  AND dlSuchId1 IN (" + chosen + "))";

    const std::string everything =
        " (" + positions + accounts + columns + line_kinds + cells + frameworks + ")";
};

}  // namespace prot
