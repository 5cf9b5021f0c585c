#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "apps/protcsv/sample/sample_records.h"

/// The persons behind customers and suppliers, what belongs to them, and the log rows of their changes. Empty
/// texts are NULL in the tables.
namespace prot::sample {

struct Person {
    std::int32_t id = 0;  ///< Ps_Id
    std::string short_name, name;
    std::string vat_id;     ///< PS_USTIDFK
    std::string attention;  ///< PS_ZUHAENDEN
};

/// What a person is called in full.
struct PersonalData {
    std::int32_t id = 0;  ///< Pl_Id
    std::int32_t person_id = 0;
    std::string name;  ///< Pl_Bezeichnung
};

struct Address {
    std::int32_t id = 0;       ///< ADR_ID
    std::int32_t country = 0;  ///< LA_ID
    std::string street, postcode, town, district;
};

struct AddressLink {
    std::int32_t address_id = 0, person_id = 0;
    std::int32_t type = 0;  ///< ADR_TYP
};

struct BankAccount {
    std::int32_t id = 0;       ///< BK_ID
    std::int32_t bank_id = 0;  ///< BA_ID; 0: none
    std::string iban, holder;
    std::string_view import_mark;
};

struct AccountLink {
    std::int32_t account_id = 0, person_id = 0;
};

/// What a bank account has besides: a note, and the mandate to collect from it.
struct AccountExtra {
    std::int32_t id = 0;  ///< BKZ_Id
    std::int32_t account_id = 0;
    std::string note, mandate;
    Day mandate_day;  ///< the null moment without mandate
};

LogRow log_row(const Occasion& occasion, const Person* before, const Person* after);
LogRow log_row(const Occasion& occasion, const PersonalData* before, const PersonalData* after);
LogRow log_row(const Occasion& occasion, const Address* before, const Address* after);
LogRow log_row(const Occasion& occasion, const AddressLink* before, const AddressLink* after);
LogRow log_row(const Occasion& occasion, const BankAccount* before, const BankAccount* after);
LogRow log_row(const Occasion& occasion, const AccountLink* before, const AccountLink* after);
LogRow log_row(const Occasion& occasion, const AccountExtra* before, const AccountExtra* after);

}  // namespace prot::sample
