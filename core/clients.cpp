#include "core/clients.h"

#include "core/log_row.h"
#include "platform/automation/text_forms.h"

namespace prot {

namespace {

constexpr std::string_view are_clients = " AND (Mandant_Zeit.MaZt_Kanzlei = 0)";
constexpr std::string_view are_offices = " AND (Mandant_Zeit.MaZt_Kanzlei = -1)";

struct KindRow {
    std::string_view label;
    std::string_view condition;  ///< on the clients that may be chosen
};
/// In the order of ClientKind.
constexpr KindRow kinds[] = {
    {"Mandant", are_clients},        {"Kanzlei", are_offices},         {"Alle Mandanten", are_clients},
    {"Alle Kanzleien", are_offices}, {"Alle Mandanten/Kanzleien", ""},
};

const KindRow& row_of(ClientKind kind) { return kinds[static_cast<std::size_t>(kind)]; }

/// The clients that are not in the waste basket.
std::string clients_statement(ClientKind kind, std::string_view columns, std::string_view order) {
    return std::string("SELECT DISTINCT ")
        .append(columns)
        .append(
            " FROM Person_v4 INNER JOIN Personalie ON Person_v4.Ps_Id = Personalie.Ps_Id"
            " INNER JOIN Mandant_Zeit ON Personalie.Pl_Id = Mandant_Zeit.Pl_Id"
            " INNER JOIN Akten ON Person_v4.Ps_Id = Akten.Ps_Id"
            " WHERE (Akten.Akt_Papierkorb = 0) ")
        .append(row_of(kind).condition)
        .append(" ORDER BY Person_v4.")
        .append(order);
}

std::string text(const RowSet& rows, std::size_t column, std::size_t row) {
    return to_text(rows.at(column, row).value());
}

}  // namespace

std::string_view label_of(ClientKind kind) { return row_of(kind).label; }

std::optional<Client> find_client(Database& oDBU, ClientKind kind, const std::string& number) {
    const RowSet rows = oDBU.query_array(
        std::string("SELECT Person_v4.Ps_Id, Person_v4.Ps_KurzName From Person_v4 INNER JOIN Personalie ON "
                    "Person_v4.Ps_Id = Personalie.Ps_Id INNER JOIN Mandant_Zeit ON Personalie.Pl_Id = "
                    "Mandant_Zeit.Pl_Id Where Mandant_Zeit.MaZt_Kanzlei ")
            .append(kind == ClientKind::client ? " = 0 " : " <> 0 ")
            .append(" AND Person_v4.Ps_Nr = ")
            .append(number));
    rows.require_columns(2);
    if (rows.empty()) return std::nullopt;
    return Client{number_of(rows.at(0, 0)), number, text(rows, 1, 0)};
}

std::string client_ids(Database& oDBU, ClientKind kind, std::string_view columns) {
    const RowSet rows = oDBU.query_array(clients_statement(kind, columns, "Ps_Id"));
    rows.require_columns(1);
    std::string ids;
    for (std::size_t row = 0; row < rows.rows(); ++row)
        ids.append(row == 0 ? "" : ", ").append(text(rows, 0, row));
    return ids;
}

std::vector<Entry> client_entries(Database& oDBU, ClientKind kind) {
    const RowSet rows = oDBU.query_array(
        clients_statement(kind, "Person_v4.Ps_Id, Person_v4.Ps_nr, Person_v4.Ps_KurzName", "Ps_nr"));
    rows.require_columns(3);
    std::vector<Entry> entries(rows.rows());
    for (std::size_t row = 0; row < rows.rows(); ++row)
        entries[row] = {number_of(rows.at(0, row)), text(rows, 2, row), text(rows, 1, row)};
    return entries;
}

}  // namespace prot
