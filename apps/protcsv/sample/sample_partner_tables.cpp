#include "apps/protcsv/sample/sample_partner_tables.h"

#include <optional>
#include <string>

namespace prot::sample {
namespace {

constexpr const char* shared_tables = R"(
CREATE TABLE IF NOT EXISTS ADRESSE (
    ADR_ID INTEGER PRIMARY KEY,
    LA_ID INTEGER,
    ADR_STRASSE TEXT COLLATE NOCASE,
    ADR_PLZ TEXT COLLATE NOCASE,
    ADR_ORT TEXT COLLATE NOCASE,
    ADR_ORTSTEIL TEXT COLLATE NOCASE
);
CREATE TABLE IF NOT EXISTS PERSON_ADRESSE (
    ADR_ID INTEGER,
    PS_ID INTEGER,
    ADR_TYP INTEGER,
    PRIMARY KEY (ADR_ID, PS_ID)
);
CREATE TABLE IF NOT EXISTS BANKKONTO (
    BK_ID INTEGER PRIMARY KEY,
    BA_ID INTEGER,
    BK_IBAN TEXT COLLATE NOCASE,
    BK_INHABER TEXT COLLATE NOCASE,
    BK_IMPORT_KZ TEXT COLLATE NOCASE
);
CREATE TABLE IF NOT EXISTS PERSON_BANKKONTO (
    BK_ID INTEGER,
    PS_ID INTEGER,
    PRIMARY KEY (BK_ID, PS_ID)
);
CREATE TABLE IF NOT EXISTS STM_BKTOZUSATZ (
    BKZ_Id INTEGER PRIMARY KEY,
    BKZ_Bk_Id INTEGER,
    BKZ_VERMERK TEXT COLLATE NOCASE,
    BKZ_MANDAT TEXT COLLATE NOCASE,
    BKZ_MANDAT_VOM DATETIME
);
CREATE TABLE IF NOT EXISTS TKULIEFKOND (
    IDKLK INTEGER PRIMARY KEY,
    dcBezeichnung TEXT COLLATE NOCASE,
    diTageZahlungsziel INTEGER,
    diSkontoTage1 INTEGER,
    diSkontoSatz1 REAL,
    diSkontoTage2 INTEGER,
    diSkontoSatz2 REAL,
    diTyp INTEGER,
    flManID INTEGER,
    flMitID INTEGER,
    ddDatum DATETIME
);
CREATE TABLE IF NOT EXISTS TVERWENDZWECK (
    IDVWZ INTEGER PRIMARY KEY,
    dcBezeichnung TEXT COLLATE NOCASE
);
CREATE TABLE IF NOT EXISTS TTEXTHAUPTGRUPPE (
    IDTH INTEGER PRIMARY KEY,
    dcBezeichnung TEXT COLLATE NOCASE
);
CREATE TABLE IF NOT EXISTS MAHNBEDINGUNGEN_V4 (
    MB_ID INTEGER PRIMARY KEY,
    Mb_Bezeichnung TEXT COLLATE NOCASE
);
CREATE TABLE IF NOT EXISTS TBANK (
    idBank INTEGER PRIMARY KEY,
    dcBLZ TEXT COLLATE NOCASE,
    dcBezeichnung TEXT COLLATE NOCASE
);
)";

constexpr const char* shared_indexes = R"(
CREATE INDEX IF NOT EXISTS iPersonAdressePerson ON PERSON_ADRESSE (PS_ID);
CREATE INDEX IF NOT EXISTS iPersonBankkontoPerson ON PERSON_BANKKONTO (PS_ID);
CREATE INDEX IF NOT EXISTS iBktoZusatzBankkonto ON STM_BKTOZUSATZ (BKZ_Bk_Id);
)";

std::string create_partner_table(Side side) {
    std::string sql = "CREATE TABLE ";
    sql.append(of_side(partner_table, side));
    std::string_view separator = " (\n    ";
    for (const PartnerColumn& column : partner_columns()) {
        sql.append(separator).append(of_side(column.name, side)).append(" ").append(column.type);
        separator = ",\n    ";
    }
    return sql.append("\n);\n");
}

std::string create_purpose_link_table(Side side) {
    const std::string key(of_side(purpose_link_key, side));
    return std::string("CREATE TABLE ")
        .append(of_side(purpose_link_table, side))
        .append(" (\n    " + key + " INTEGER,\n    FLVWZ INTEGER,\n    PRIMARY KEY (" + key +
                ", FLVWZ)\n);\n");
}

/// Number, person, client, terms, dunning and text group; and the purposes of a partner.
std::string create_own_indexes(Side side) {
    std::string sql;
    const auto add = [&sql](std::string_view table, std::string_view column) {
        sql.append("CREATE INDEX i").append(table).append("_").append(column);
        sql.append(" ON ").append(table).append(" (").append(column).append(");\n");
    };
    constexpr std::size_t number = 1, text_group = 6;
    for (const PartnerColumn& column : partner_columns().subspan(number, text_group))
        add(of_side(partner_table, side), of_side(column.name, side));
    add(of_side(purpose_link_table, side), "FLVWZ");
    return sql;
}

std::optional<std::string_view> or_null(std::string_view text) {
    return text.empty() ? std::nullopt : std::optional(text);
}

std::optional<double> hundredths_or_null(std::int64_t number) {
    return number == 0 ? std::nullopt : std::optional(static_cast<double>(number) / 100);
}

std::optional<std::int32_t> or_null(std::int32_t number) {
    return number == 0 ? std::nullopt : std::optional(number);
}

/// Writes dossiers, each with all that belongs to it.
class DossierWriter {
public:
    DossierWriter(SqliteFile& file, Side side)
        : partner_(file, insert_into(of_side(partner_table, side), partner_columns().size())),
          purpose_(file, insert_into(of_side(purpose_link_table, side), 2)),
          person_(file,
                  "INSERT INTO Person_v4 (Ps_Id, Ps_KurzName, Ps_Name, PS_USTIDFK, PS_ZUHAENDEN)"
                  " VALUES (?, ?, ?, ?, ?)"),
          personal_data_(file, insert_into("Personalie", 3)),
          address_(file, insert_into("ADRESSE", 6)),
          address_link_(file, insert_into("PERSON_ADRESSE", 3)),
          account_(file, insert_into("BANKKONTO", 5)),
          account_link_(file, insert_into("PERSON_BANKKONTO", 2)),
          extra_(file, insert_into("STM_BKTOZUSATZ", 5)) {}

    void write(const Dossier& dossier) {
        if (!dossier.exists) return;
        write(dossier.partner);
        write(dossier.person);
        const PersonalData& data = dossier.personal_data;
        personal_data_.row(data.id, data.person_id, data.name);
        for (const Residence& residence : dossier.residences) write(residence);
        for (const Banking& banking : dossier.bankings) write(dossier, banking);
        for (const PurposeLink& purpose : dossier.purposes)
            purpose_.row(purpose.partner_id, purpose.purpose_id);
    }

private:
    void write(const Partner& row) {
        partner_.row(row.id, row.number, row.person_id, row.client_id, row.terms, row.dunning, row.texts,
                     row.regulator, hundredths_or_null(row.limit), hundredths_or_null(row.discount),
                     or_null(row.reference), or_null(row.note), or_null(row.import_mark),
                     iso_text(row.changed), or_null(row.employee), or_null(row.memo));
    }

    void write(const Person& row) {
        person_.row(row.id, row.short_name, row.name, or_null(row.vat_id), or_null(row.attention));
    }

    void write(const Residence& residence) {
        const auto& [row, link] = residence;
        address_.row(row.id, row.country, row.street, row.postcode, row.town, or_null(row.district));
        address_link_.row(link.address_id, link.person_id, link.type);
    }

    void write(const Dossier& dossier, const Banking& banking) {
        const BankAccount& row = banking.account;
        account_.row(row.id, row.bank_id, row.iban, or_null(row.holder), or_null(row.import_mark));
        const AccountLink link = link_of(dossier, banking);
        if (banking.linked) account_link_.row(link.account_id, link.person_id);
        if (!banking.extra) return;
        const AccountExtra& extra = *banking.extra;
        const std::string day = extra.mandate_day == Day() ? std::string() : iso_text(extra.mandate_day);
        extra_.row(extra.id, extra.account_id, or_null(extra.note), or_null(extra.mandate), or_null(day));
    }

    SqliteInsert partner_, purpose_, person_, personal_data_, address_, address_link_, account_,
        account_link_, extra_;
};

void write_terms(SqliteFile& file, const PartnerLists& lists) {
    SqliteInsert insert(file, insert_into("TKULIEFKOND", 11));
    for (const Terms& row : lists.terms)
        if (row.exists)
            insert.row(row.id, row.name, row.due_days, or_null(row.days1), hundredths_or_null(row.rate1),
                       or_null(row.days2), hundredths_or_null(row.rate2), row.type, 0, row.employee,
                       iso_text(row.changed));
}

void write_lists(SqliteFile& file, const PartnerLists& lists) {
    for (std::size_t list = 0; list < list_tables.size(); ++list) {
        SqliteInsert insert(file, insert_into(list_tables[list], 2));
        for (const ListEntry& row : lists.entries[list])
            if (row.exists) insert.row(row.id, row.name);
    }
    SqliteInsert insert(file, insert_into("TBANK", 3));
    for (const Bank& row : lists.banks)
        if (row.exists) insert.row(row.id, or_null(row.code), row.name);
}

// BK_IMPORT_KZ, too, is logged without caption.
// clang-format off
constexpr Caption shared_captions[] = {
    {"PERSON_V4",          "Ps_Id",              "Schlüssel der Person"},
    {"PERSON_V4",          "Ps_KurzName",        "Kurzname"},
    {"PERSON_V4",          "Ps_Name",            "Name"},
    {"PERSON_V4",          "PS_USTIDFK",         "USt-IdNr. des Geschäftspartners"},
    {"PERSON_V4",          "PS_ZUHAENDEN",       "Zu Händen"},
    {"PERSONALIE",         "Pl_Id",              "Schlüssel der Personalie"},
    {"PERSONALIE",         "Ps_Id",              "Person"},
    {"PERSONALIE",         "Pl_Bezeichnung",     "Bezeichnung"},
    {"ADRESSE",            "ADR_ID",             "Schlüssel der Adresse"},
    {"ADRESSE",            "LA_ID",              "Land"},
    {"ADRESSE",            "ADR_STRASSE",        "Straße"},
    {"ADRESSE",            "ADR_PLZ",            "Postleitzahl"},
    {"ADRESSE",            "ADR_ORT",            "Ort"},
    {"ADRESSE",            "ADR_ORTSTEIL",       "Ortsteil"},
    {"PERSON_ADRESSE",     "ADR_ID",             "Adresse"},
    {"PERSON_ADRESSE",     "PS_ID",              "Person"},
    {"PERSON_ADRESSE",     "ADR_TYP",            "Art der Adresse"},
    {"BANKKONTO",          "BK_ID",              "Schlüssel der Bankverbindung"},
    {"BANKKONTO",          "BA_ID",              "Bank"},
    {"BANKKONTO",          "BK_IBAN",            "IBAN"},
    {"BANKKONTO",          "BK_INHABER",         "Kontoinhaber"},
    {"PERSON_BANKKONTO",   "BK_ID",              "Bankverbindung"},
    {"PERSON_BANKKONTO",   "PS_ID",              "Person"},
    {"STM_BKTOZUSATZ",     "BKZ_Id",             "Schlüssel des Zusatzes"},
    {"STM_BKTOZUSATZ",     "BKZ_Bk_Id",          "Bankverbindung"},
    {"STM_BKTOZUSATZ",     "BKZ_VERMERK",        "Vermerk zur Bankverbindung"},
    {"STM_BKTOZUSATZ",     "BKZ_MANDAT",         "Mandatsreferenz"},
    {"STM_BKTOZUSATZ",     "BKZ_MANDAT_VOM",     "Mandat erteilt am"},
    {"TKULIEFKOND",        "dcBezeichnung",      "Bezeichnung"},
    {"TKULIEFKOND",        "diTageZahlungsziel", "Zahlungsziel in Tagen"},
    {"TKULIEFKOND",        "diSkontoTage1",      "Skontofrist 1 in Tagen"},
    {"TKULIEFKOND",        "diSkontoSatz1",      "Skontosatz 1 in %"},
    {"TKULIEFKOND",        "diSkontoTage2",      "Skontofrist 2 in Tagen"},
    {"TKULIEFKOND",        "diSkontoSatz2",      "Skontosatz 2 in %"},
    {"TKULIEFKOND",        "ddDatum",            "Datum der letzten Änderung"},
    {"TVERWENDZWECK",      "dcBezeichnung",      "Bezeichnung des Verwendungszwecks"},
    {"TTEXTHAUPTGRUPPE",   "dcBezeichnung",      "Bezeichnung der Texthauptgruppe"},
    {"MAHNBEDINGUNGEN_V4", "Mb_Bezeichnung",     "Bezeichnung der Mahnbedingung"},
    {"TBANK",              "dcBLZ",              "Bankleitzahl"},
    {"TBANK",              "dcBezeichnung",      "Bezeichnung der Bank"},
};
// clang-format on

}  // namespace

void write_partners(SqliteFile& file, Side side, const PartnerDesk& desk) {
    file.execute(shared_tables);
    file.execute(create_partner_table(side) + create_purpose_link_table(side));
    DossierWriter writer(file, side);
    for (const Dossier& dossier : desk.cast()) writer.write(dossier);
    for (const Dossier& dossier : desk.others()) writer.write(dossier);
    write_terms(file, desk.lists());
    write_lists(file, desk.lists());
    file.execute(shared_indexes + create_own_indexes(side));
}

std::vector<Caption> partner_captions(Side side) {
    std::vector<Caption> captions(std::begin(shared_captions), std::end(shared_captions));
    for (const PartnerColumn& column : partner_columns()) {
        const std::string_view caption = of_side(column.caption, side);
        if (!caption.empty())
            captions.push_back({of_side(partner_table, side), of_side(column.name, side), caption});
    }
    captions.push_back({of_side(purpose_link_table, side), "FLVWZ", "Zweck der Zahlung"});
    return captions;
}

}  // namespace prot::sample
