#include "sections/customers_suppliers/partner_selection.h"

#include <utility>

#include "core/ZQErrorHandling.h"
#include "core/number_range.h"
#include "platform/automation/text_parts.h"

namespace prot::customers_suppliers {

namespace {

constexpr std::string_view log_table = "#TempTable_tProtokoll", master_table = "#TempTable_KuLief";

/// How the rows of a logged table are tied to a customer: which column of the log lies in which set of keys.
/// {persons}: of the selected master rows, by the log, so that deleted ones are found. {conditions} and
/// {owners}: their terms of payment and their own keys, by the live table.
struct Tie {
    std::string_view dcTable, column, keys;
};
constexpr Tie ties[] = {
    {"PERSON_V4", "dlPrimaryKey1", "{persons}"},
    {"PERSONALIE", "dlSuchId1", "{persons}"},
    {"BANKKONTO", "dlPrimaryKey1",
     "(SELECT BK_ID FROM PERSON_BANKKONTO WHERE PS_ID IN {persons}"
     " UNION SELECT dlPrimaryKey1 FROM tProtokoll"
     " WHERE dcTable = 'PERSON_BANKKONTO' AND dlEvent = 2 AND dlPrimaryKey2 IN {persons})"},
    {"STM_BKTOZUSATZ", "dlSuchId1", "(SELECT BK_ID FROM PERSON_BANKKONTO WHERE PS_ID IN {persons})"},
    {"ADRESSE", "dlPrimaryKey1",
     "(SELECT ADR_ID FROM PERSON_ADRESSE WHERE PS_ID IN {persons}"
     " UNION SELECT dlPrimaryKey1 FROM tProtokoll"
     " WHERE dcTable = 'PERSON_ADRESSE' AND dlEvent = 2 AND dlPrimaryKey2 IN {persons})"},
    // Ids of addresses among those of persons, deliberately.
    {"PERSON_ADRESSE", "dlPrimaryKey2",
     "({persons} UNION SELECT dlPrimaryKey1 FROM tProtokoll"
     " WHERE dcTable = 'PERSON_ADRESSE' AND dlEvent = 2 AND dlPrimaryKey2 IN {persons})"},
    {"TKULIEFKOND", "dlPrimaryKey1", "{conditions}"},
    // Ids of purposes among those of customers or suppliers, deliberately.
    {"{purposes}", "dlPrimaryKey1",
     "({owners} UNION SELECT dlPrimaryKey2 FROM tProtokoll"
     " WHERE dcTable = '{purposes}' AND dlEvent = 2 AND dlPrimaryKey1 IN ({owners}))"},
};

/// The sets of the ties. `owners` has no parentheses, as it is part of a larger set.
struct Sets {
    std::string persons, conditions, owners;
};

/// Which rows of the log and of the master table are selected.
struct Selected {
    std::string in_log, in_master;
};

Selected selected(const Ledger& ledger, const Filter& filter, Database& oDBU) {
    using enum ClientKind;
    std::string clients;
    if (filter.mlMandantId >= 1)
        clients = " = " + std::to_string(filter.mlMandantId);
    else if (filter.mlMandantModus == all_clients || filter.mlMandantModus == all_offices)
        clients = " IN (" + msMandantId(filter.mlMandantModus, oDBU) + ")";
    const auto of_clients = [&clients](std::string_view column) {
        return clients.empty() ? std::string() : " AND " + std::string(column) + clients;
    };
    const std::string range =
        " BETWEEN " + plain_number(filter.mdVonNr) + " AND " + plain_number(filter.mdBisNr);
    return {named(" dcTable = '{master}' AND dlSuchId4", ledger) + range + of_clients("dlSuchId2"),
            named(" WHERE {number}", ledger) + range + of_clients("Ps_Id_Mandant")};
}

std::string condition(const Ledger& ledger, const std::string& in_log, const Sets& sets) {
    const auto filled = [&](std::string_view pattern) {
        std::string text = named(pattern, ledger);
        text = replaced(std::move(text), "{persons}", sets.persons);
        text = replaced(std::move(text), "{conditions}", sets.conditions);
        return replaced(std::move(text), "{owners}", sets.owners);
    };
    std::string text = filled(" ((dcTable = '{master}' AND ") + in_log + ") ";
    for (const Tie& tie : ties)
        text.append(" OR (dcTable = '")
            .append(filled(tie.dcTable))
            .append("' AND ")
            .append(tie.column)
            .append(" IN ")
            .append(filled(tie.keys))
            .append(")");
    return text + ")";
}

/// Fills a temporary table anew.
std::string fill(std::string_view table, std::string_view columns, std::string_view from) {
    return std::string("DROP TABLE IF EXISTS ")
        .append(table)
        .append(" \r\nSELECT ")
        .append(columns)
        .append(" INTO ")
        .append(table)
        .append(" FROM ")
        .append(from);
}

}  // namespace

std::string msWHERE4809(const Ledger& ledger, const Filter& filter, Database& oDBU,
                        std::string& sTempSQL) try {
    const auto [in_log, in_master] = selected(ledger, filter, oDBU);
    sTempSQL =
        fill(log_table, "dlSuchId1", "tProtokoll WHERE " + in_log + "; \r\n") +
        fill(master_table, named("KLKD_ID,{id}", ledger), named("{master} ", ledger) + in_master + ";\r\n");
    const std::string master(master_table);
    return condition(ledger, in_log,
                     {.persons = "(Select dlSuchId1 From " + std::string(log_table) + ")",
                      .conditions = "(SELECT KLKD_ID FROM " + master + ")",
                      .owners = named("SELECT {id} FROM ", ledger) + master});
} catch (...) {
    leave(owner, "msWHERE4809");
}

std::string msWHERE(const Ledger& ledger, const Filter& filter, Database& oDBU) try {
    const auto [in_log, in_master] = selected(ledger, filter, oDBU);
    return condition(ledger, in_log,
                     {.persons = "(Select dlSuchId1 From tProtokoll Where " + in_log + ")",
                      .conditions = named("(SELECT KLKD_ID FROM {master} ", ledger) + in_master + ")",
                      .owners = named("SELECT {id} FROM {master} ", ledger) + in_master});
} catch (...) {
    leave(owner, "msWHERE");
}

std::string msMandantId(ClientKind mlMandantModus, Database& oDBU) try {
    return client_ids(oDBU, mlMandantModus, "Person_v4.Ps_Id");
} catch (...) {
    leave(owner, "msMandantId");
}

}  // namespace prot::customers_suppliers
