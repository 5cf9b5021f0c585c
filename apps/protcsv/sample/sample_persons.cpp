#include "apps/protcsv/sample/sample_persons.h"

namespace prot::sample {
namespace {

std::string mandate_day_text(const AccountExtra& extra) {
    return extra.mandate_day == Day() ? std::string() : german_text(extra.mandate_day);
}

// clang-format off
constexpr Field<Person> person_fields[] = {
    {"Ps_Id",        [](const Person& person) { return std::to_string(person.id); }},
    {"Ps_KurzName",  [](const Person& person) { return person.short_name; }},
    {"Ps_Name",      [](const Person& person) { return person.name; }},
    {"PS_USTIDFK",   [](const Person& person) { return person.vat_id; }},
    {"PS_ZUHAENDEN", [](const Person& person) { return person.attention; }},
};

constexpr Field<PersonalData> personal_data_fields[] = {
    {"Pl_Id",          [](const PersonalData& data) { return std::to_string(data.id); }},
    {"Ps_Id",          [](const PersonalData& data) { return std::to_string(data.person_id); }},
    {"Pl_Bezeichnung", [](const PersonalData& data) { return data.name; }},
};

constexpr Field<Address> address_fields[] = {
    {"ADR_ID",       [](const Address& address) { return std::to_string(address.id); }},
    {"LA_ID",        [](const Address& address) { return std::to_string(address.country); }},
    {"ADR_STRASSE",  [](const Address& address) { return address.street; }},
    {"ADR_PLZ",      [](const Address& address) { return address.postcode; }},
    {"ADR_ORT",      [](const Address& address) { return address.town; }},
    {"ADR_ORTSTEIL", [](const Address& address) { return address.district; }},
};

constexpr Field<AddressLink> address_link_fields[] = {
    {"ADR_ID",  [](const AddressLink& link) { return std::to_string(link.address_id); }},
    {"PS_ID",   [](const AddressLink& link) { return std::to_string(link.person_id); }},
    {"ADR_TYP", [](const AddressLink& link) { return std::to_string(link.type); }},
};

constexpr Field<BankAccount> account_fields[] = {
    {"BK_ID",        [](const BankAccount& account) { return std::to_string(account.id); }},
    {"BA_ID",        [](const BankAccount& account) { return std::to_string(account.bank_id); }},
    {"BK_IBAN",      [](const BankAccount& account) { return account.iban; }},
    {"BK_INHABER",   [](const BankAccount& account) { return account.holder; }},
    {"BK_IMPORT_KZ", [](const BankAccount& account) { return std::string(account.import_mark); }},
};

constexpr Field<AccountLink> account_link_fields[] = {
    {"BK_ID", [](const AccountLink& link) { return std::to_string(link.account_id); }},
    {"PS_ID", [](const AccountLink& link) { return std::to_string(link.person_id); }},
};

constexpr Field<AccountExtra> extra_fields[] = {
    {"BKZ_Id",          [](const AccountExtra& extra) { return std::to_string(extra.id); }},
    {"BKZ_Bk_Id",       [](const AccountExtra& extra) { return std::to_string(extra.account_id); }},
    {"BKZ_VERMERK",     [](const AccountExtra& extra) { return extra.note; }},
    {"BKZ_MANDAT",      [](const AccountExtra& extra) { return extra.mandate; }},
    {"BKZ_MANDAT_VOM",  mandate_day_text},
};

constexpr LoggedTable<Person> logged_persons = {"PERSON_V4", person_fields, [](const Person& person) {
    return LogKeys{.primary_key1 = person.id};
}};
constexpr LoggedTable<PersonalData> logged_personal_data = {"PERSONALIE", personal_data_fields, [](const PersonalData& data) {
    return LogKeys{.primary_key1 = data.id, .search_ids = {data.person_id}};
}};
constexpr LoggedTable<Address> logged_addresses = {"ADRESSE", address_fields, [](const Address& address) {
    return LogKeys{.primary_key1 = address.id};
}};
constexpr LoggedTable<AddressLink> logged_address_links = {"PERSON_ADRESSE", address_link_fields, [](const AddressLink& link) {
    return LogKeys{.primary_key1 = link.address_id, .primary_key2 = link.person_id};
}};
constexpr LoggedTable<BankAccount> logged_accounts = {"BANKKONTO", account_fields, [](const BankAccount& account) {
    return LogKeys{.primary_key1 = account.id};
}};
constexpr LoggedTable<AccountLink> logged_account_links = {"PERSON_BANKKONTO", account_link_fields, [](const AccountLink& link) {
    return LogKeys{.primary_key1 = link.account_id, .primary_key2 = link.person_id};
}};
constexpr LoggedTable<AccountExtra> logged_extras = {"STM_BKTOZUSATZ", extra_fields, [](const AccountExtra& extra) {
    return LogKeys{.primary_key1 = extra.id, .search_ids = {extra.account_id}};
}};
// clang-format on

}  // namespace

LogRow log_row(const Occasion& occasion, const Person* before, const Person* after) {
    return log_row(logged_persons, occasion, before, after);
}

LogRow log_row(const Occasion& occasion, const PersonalData* before, const PersonalData* after) {
    return log_row(logged_personal_data, occasion, before, after);
}

LogRow log_row(const Occasion& occasion, const Address* before, const Address* after) {
    return log_row(logged_addresses, occasion, before, after);
}

LogRow log_row(const Occasion& occasion, const AddressLink* before, const AddressLink* after) {
    return log_row(logged_address_links, occasion, before, after);
}

LogRow log_row(const Occasion& occasion, const BankAccount* before, const BankAccount* after) {
    return log_row(logged_accounts, occasion, before, after);
}

LogRow log_row(const Occasion& occasion, const AccountLink* before, const AccountLink* after) {
    return log_row(logged_account_links, occasion, before, after);
}

LogRow log_row(const Occasion& occasion, const AccountExtra* before, const AccountExtra* after) {
    return log_row(logged_extras, occasion, before, after);
}

}  // namespace prot::sample
