#pragma once

#include <string>

/// Statements that several sections send, as whole texts, but for what differs.
namespace prot::test {

/// The client (kind " = 0 ") or office (" <> 0 ") of a number.
inline std::string find_client_statement(const std::string& kind, const std::string& number) {
    return "SELECT Person_v4.Ps_Id, Person_v4.Ps_KurzName From Person_v4 INNER JOIN Personalie ON "
           "Person_v4.Ps_Id = Personalie.Ps_Id INNER JOIN Mandant_Zeit ON Personalie.Pl_Id = "
           "Mandant_Zeit.Pl_Id Where Mandant_Zeit.MaZt_Kanzlei " +
           kind + " AND Person_v4.Ps_Nr = " + number;
}

inline constexpr const char* are_clients = " AND (Mandant_Zeit.MaZt_Kanzlei = 0)";
inline constexpr const char* are_offices = " AND (Mandant_Zeit.MaZt_Kanzlei = -1)";

/// Those that may be chosen. condition: are_clients, are_offices, or empty for both.
inline std::string clients_statement(const std::string& columns, const std::string& condition,
                                     const std::string& order) {
    return "SELECT DISTINCT " + columns +
           " FROM Person_v4 INNER JOIN Personalie ON Person_v4.Ps_Id = Personalie.Ps_Id INNER JOIN "
           "Mandant_Zeit ON Personalie.Pl_Id = Mandant_Zeit.Pl_Id INNER JOIN Akten ON Person_v4.Ps_Id = "
           "Akten.Ps_Id WHERE (Akten.Akt_Papierkorb = 0) " +
           condition + " ORDER BY Person_v4." + order;
}

/// What a person picks from.
inline std::string picker_statement(const std::string& condition) {
    return clients_statement("Person_v4.Ps_Id, Person_v4.Ps_nr, Person_v4.Ps_KurzName", condition, "Ps_nr");
}

inline std::string caption_statement(const std::string& table, const std::string& column) {
    return "SELECT tSysQuvoColumns.dmDescription FROM   tSysQuvoColumns INNER JOIN tSysQuvoTables ON "
           "tSysQuvoColumns.flTable = tSysQuvoTables.IDSysQuvoTables WHERE tSysQuvoTables.dcTableName = '" +
           table + "' AND   tSysQuvoColumns.dcColumnName = '" + column + "'";
}

/// The first change of a value since a moment, found by a column of the log. from: the moment's literal, a
/// second earlier.
inline std::string first_change_statement(const std::string& table, const std::string& log_column, int key,
                                          const std::string& from, const std::string& column) {
    return "SELECT TOP 1 dmData FROM tProtokoll WHERE dcTable = '" + table + "' AND " + log_column + " = " +
           std::to_string(key) + " AND ddDatum >= " + from + " AND dmData LIKE '%Name=\"" + column +
           "\"><OldValue>%' ORDER BY ddDatum ASC";
}

/// The deletion that tells a value.
inline std::string deletion_statement(const std::string& table, int key, const std::string& column) {
    return "SELECT TOP 1 dmData FROM tProtokoll WHERE dcTable = '" + table +
           "' AND dlPrimaryKey1 = " + std::to_string(key) + " AND dlEvent = 2  AND dmData LIKE '%Name=\"" +
           column + "\"><OldValue>%' ORDER BY ddDatum ASC";
}

inline std::string live_value_statement(const std::string& table, const std::string& column,
                                        const std::string& key_column, int key) {
    return "SELECT [" + column + "] FROM [" + table + "] WHERE [" + key_column + "] = " + std::to_string(key);
}

}  // namespace prot::test
