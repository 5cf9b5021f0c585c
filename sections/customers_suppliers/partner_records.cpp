#include "sections/customers_suppliers/partner_records.h"

#include <algorithm>

#include "core/ProtQRBCsvBas.h"
#include "core/ZQErrorHandling.h"
#include "core/log_row.h"
#include "platform/automation/letter_case.h"
#include "platform/automation/text_forms.h"

namespace prot::customers_suppliers {

namespace {

constexpr std::string_view not_found = "nicht gefunden!";
constexpr std::string_view terms_of_payment = "TKULIEFKOND";

// From which tables a path starts.
constexpr std::string_view from_master =
    "FROM {master} INNER JOIN PERSON_V4 ON {master}.{person} = PERSON_V4.PS_ID"
    " INNER JOIN PERSONALIE ON PERSON_V4.PS_ID = PERSONALIE.PS_ID";
constexpr std::string_view from_account =
    "FROM (BANKKONTO INNER JOIN ((PERSON_V4 INNER JOIN PERSON_BANKKONTO"
    " ON PERSON_V4.PS_ID = PERSON_BANKKONTO.PS_ID)"
    " INNER JOIN PERSONALIE ON PERSON_V4.PS_ID = PERSONALIE.PS_ID)"
    " ON BANKKONTO.BK_ID = PERSON_BANKKONTO.BK_ID)"
    " INNER JOIN {master} ON PERSON_V4.PS_ID = {master}.{person}";
constexpr std::string_view from_address =
    "FROM (ADRESSE INNER JOIN ((PERSON_V4 INNER JOIN PERSON_ADRESSE"
    " ON PERSON_V4.PS_ID = PERSON_ADRESSE.PS_ID)"
    " INNER JOIN PERSONALIE ON PERSON_V4.PS_ID = PERSONALIE.PS_ID)"
    " ON ADRESSE.ADR_ID = PERSON_ADRESSE.ADR_ID)"
    " INNER JOIN {master} ON PERSON_V4.PS_ID = {master}.{person}";
constexpr std::string_view from_account_extras =
    "FROM STM_BKTOZUSATZ INNER JOIN Bankkonto ON STM_BKtoZusatz.BKZ_Bk_Id = Bankkonto.Bk_Id"
    " INNER JOIN Person_Bankkonto ON Bankkonto.Bk_Id = Person_Bankkonto.Bk_Id"
    " INNER JOIN Person_v4 ON Person_Bankkonto.Ps_Id = Person_v4.Ps_Id"
    " INNER JOIN Personalie ON Person_v4.Ps_Id = Personalie.Ps_Id"
    " INNER JOIN {master} ON Person_v4.Ps_Id = {master}.{person}";
constexpr std::string_view from_purposes =
    "FROM {purposes} INNER JOIN {master} ON {purposes}.{purposes_owner} = {master}.{id}"
    " INNER JOIN TVERWENDZWECK ON {purposes}.FLVWZ = TVERWENDZWECK.IDVWZ"
    " INNER JOIN PERSON_V4 ON {master}.{person} = PERSON_V4.PS_ID"
    " INNER JOIN PERSONALIE ON PERSON_V4.PS_ID = PERSONALIE.PS_ID";

/// Two blanks behind FROM and behind WHERE, as those who search the statement log know it.
constexpr std::string_view partner_of_person =
    "SELECT Personalie.Pl_Bezeichnung, {spelled_number} FROM  Person_v4"
    " INNER JOIN Personalie ON Person_v4.Ps_Id = Personalie.Ps_Id"
    " INNER JOIN {spelled_table} ON Person_v4.Ps_Id = {spelled_table}.{person}"
    " WHERE  ({spelled_table}.{person} = {key})";

/// A statement's answer in the log: `column` of the rows of dcTable whose key_column is the key.
struct LogTie {
    std::string_view dcTable, column, key_column;
};
constexpr LogTie number_of_person = {"{master}", "dlSuchId4", "dlSuchId1"};
constexpr LogTie personal_data_of_person = {"PERSONALIE", "dlPrimaryKey1", "dlSuchId1"};

/// How a logged table's row leads to its customer or supplier: by the live tables, and to the person by the
/// log.
struct Path {
    std::string_view table, from, where;  ///< {key}: of the row
    PersonBy person_by = PersonBy::nothing;
    LogTie tie{};
    std::string_view link{};  ///< the table that links persons to such rows, where its rows go the same way
};
constexpr Path paths[] = {
    {"{master}",
     from_master,
     " WHERE {master}.{id} = {key}",
     PersonBy::log,
     {"{master}", "dlSuchId1", "dlPrimaryKey1"}},
    {"PERSON_V4", from_master, " WHERE PERSON_V4.PS_ID = {key}", PersonBy::key},
    {"PERSONALIE",
     from_master,
     " WHERE PERSONALIE.Pl_Id = {key}",
     PersonBy::log,
     {"PERSONALIE", "dlSuchId1", "dlPrimaryKey1"}},
    {"ADRESSE",
     from_address,
     " WHERE ADRESSE.ADR_ID = {key}",
     PersonBy::log,
     {"PERSON_ADRESSE", "dlPrimaryKey2", "dlPrimaryKey1"},
     "PERSON_ADRESSE"},
    {"BANKKONTO",
     from_account,
     " WHERE BANKKONTO.BK_ID = {key}",
     PersonBy::log,
     {"PERSON_BANKKONTO", "dlPrimaryKey2", "dlPrimaryKey1"},
     "PERSON_BANKKONTO"},
    {"STM_BKTOZUSATZ", from_account_extras, " Where (STM_BKtoZusatz.BKZ_Id = {key})"},
    {"{purposes}",
     from_purposes,
     " WHERE {purposes}.{purposes_owner} = {key}",
     PersonBy::log,
     {"{purposes}", "dlSuchId1", "dlPrimaryKey1"}},
    {"TVERWENDZWECK",
     from_purposes,
     " WHERE TVERWENDZWECK.IDVWZ = {key}",
     PersonBy::master_row,
     {"{purposes}", "dlPrimaryKey1", "dlPrimaryKey2"}},
    {terms_of_payment, from_master, " WHERE {master}.KLKD_ID = {key}"},
    {"TTEXTHAUPTGRUPPE", from_master, " WHERE {master}.MTH_ID = {key}"},
    {"MAHNBEDINGUNGEN_V4", from_master, " WHERE {master}.MB_ID = {key}"},
};

std::string statement(const LogTie& tie, const Ledger& ledger) {
    return std::string("Select ")
        .append(tie.column)
        .append(" From tProtokoll Where dcTable = '")
        .append(named(tie.dcTable, ledger))
        .append("' AND ")
        .append(tie.key_column)
        .append(" = {key}");
}

}  // namespace

PartnerRecords::PartnerRecords(Run& run, const Ledger& ledger) : run_(run), ledger_(ledger) {
    for (const Path& path : paths)
        tables_.push_back({named(path.table, ledger), path.link,
                           named(path.from, ledger) + named(path.where, ledger), path.person_by,
                           statement(path.tie, ledger)});
}

void PartnerRecords::mGetKLInfos(std::string_view sTabelle, std::int32_t lKey, std::string& sNr,
                                 std::string& sName, std::optional<Date> dtDatum) try {
    if (upper_equals(sTabelle, terms_of_payment)) {
        sName = terms_at(lKey, dtDatum);
        sNr = sName.empty() ? "" : " - ";
        if (sName.empty()) sName = not_found;
        return;
    }
    Table* const table = find(sTabelle);
    if (table) {
        const Partner& partner = live_partner(*table, lKey);
        sNr = partner.sNr;
        sName = partner.sName;
        if (partner.found) return;
    }
    mInfosFromProtokoll(table, lKey, sNr, sName, dtDatum);
} catch (...) {
    leave(owner, "mGetKLInfos");
}

std::string PartnerRecords::msKLFromWhere(std::int32_t lKey, std::string_view sTabelle) try {
    const Table* const table = find(sTabelle);
    return table ? keyed(table->from_where, lKey) : std::string();
} catch (...) {
    leave(owner, "msKLFromWhere");
}

void PartnerRecords::mInfosFromProtokoll(Table* table, std::int32_t lKey, std::string& sNr,
                                         std::string& sName, std::optional<Date> dtDatum) try {
    sNr.clear();
    sName = not_found;
    const std::int32_t id = table ? person_in_log(*table, lKey) : 0;
    if (id == 0) return;
    const Person& known = person(id);
    sNr = known.partner.sNr;
    if (known.partner.found) {
        sName = known.partner.sName;
        return;
    }
    if (std::string name = name_at(known.personal_data, dtDatum); !name.empty()) sName = std::move(name);
} catch (...) {
    leave(owner, "mInfosFromProtokoll");
}

/// Null for a table whose rows belong to nobody.
PartnerRecords::Table* PartnerRecords::find(std::string_view sTabelle) {
    const auto found = std::ranges::find_if(tables_, [&](const Table& each) {
        return upper_equals(sTabelle, each.name) || (!each.link.empty() && upper_equals(sTabelle, each.link));
    });
    return found == tables_.end() ? nullptr : &*found;
}

/// Of a statement's first row.
PartnerRecords::Partner PartnerRecords::partner_in(const RowSet& rows, std::size_t number, std::size_t name) {
    rows.require_columns(2);
    if (rows.empty()) return {};
    return {true, to_text(rows.at(number, 0).value()), to_text(rows.at(name, 0).value())};
}

const PartnerRecords::Partner& PartnerRecords::live_partner(Table& table, std::int32_t lKey) {
    if (const Partner* const* const known = table.partners.find(lKey)) return **known;
    const std::string sql = named("SELECT {master}.{number}, PERSONALIE.Pl_Bezeichnung ", ledger_) +
                            msKLFromWhere(lKey, table.name);
    const auto partner = live_partners_.insert(partner_in(run_.oDBU.query_array(sql), 0, 1)).first;
    return *table.partners.remember(lKey, &*partner);
}

/// The person that the log names for a row; 0 when it names none.
std::int32_t PartnerRecords::person_in_log(Table& table, std::int32_t lKey) {
    if (table.person_by == PersonBy::key) return lKey;
    if (table.person_by == PersonBy::nothing) return 0;
    if (const std::int32_t* const known = table.persons.find(lKey)) return *known;
    std::int32_t id = whole_number(run_.oDBU.query_value(keyed(table.in_log, lKey)));
    if (table.person_by == PersonBy::master_row && id != 0)
        id = person_in_log(*find(ledger_.msStammTabelle), id);
    return table.persons.remember(lKey, id);
}

/// What is known of a person: number and name by the live tables, else the number and the key of the personal
/// data by the log.
const PartnerRecords::Person& PartnerRecords::person(std::int32_t id) {
    if (const Person* const known = persons_.find(id)) return *known;
    Person person;
    person.partner = partner_in(run_.oDBU.query_array(keyed(named(partner_of_person, ledger_), id)), 1, 0);
    if (!person.partner.found) {
        const auto answer = [&](const LogTie& tie) {
            return run_.oDBU.query_value(keyed(statement(tie, ledger_), id));
        };
        person.partner.sNr = to_text(answer(number_of_person));
        person.personal_data = whole_number(answer(personal_data_of_person));
    }
    return persons_.remember(id, std::move(person));
}

/// The name of terms of payment at the moment of a change; empty when it cannot be told.
std::string PartnerRecords::terms_at(std::int32_t lKey, std::optional<Date> dtDatum) {
    if (!dtDatum) return {};
    return PROT_gsGetValueByDate(terms_of_payment, "dcBezeichnung", "IDKLK", std::to_string(lKey), *dtDatum,
                                 run_);
}

/// A person's name at the moment of a change. It may have been deleted in that very moment, so that a few
/// seconds before are tried, too.
std::string PartnerRecords::name_at(std::int32_t personal_data, std::optional<Date> dtDatum) {
    constexpr std::int64_t seconds_back = 5;
    if (!dtDatum) return {};
    const auto name_of = [&](Date moment) {
        return PROT_gsGetValueByDate("PERSONALIE", "Pl_Bezeichnung", "PL_ID", std::to_string(personal_data),
                                     moment, run_);
    };
    std::string name = name_of(*dtDatum);
    return name.empty() ? name_of(add_seconds(*dtDatum, -seconds_back)) : name;
}

}  // namespace prot::customers_suppliers
