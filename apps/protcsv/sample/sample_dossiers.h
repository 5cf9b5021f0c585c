#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "apps/protcsv/sample/sample_clients.h"
#include "apps/protcsv/sample/sample_partner_lists.h"
#include "apps/protcsv/sample/sample_partners.h"
#include "apps/protcsv/sample/sample_persons.h"

/// Customers and suppliers of a sample database with all that belongs to them.
namespace prot::sample {

struct Residence {
    Address address;
    AddressLink link;
};

struct Banking {
    BankAccount account;
    bool linked = true;  ///< to its person
    std::optional<AccountExtra> extra;
};

struct Dossier {
    bool exists = true;
    Partner partner;
    Person person;
    PersonalData personal_data;
    std::vector<Residence> residences;
    std::vector<Banking> bankings;
    std::vector<PurposeLink> purposes;
};

inline AccountLink link_of(const Dossier& dossier, const Banking& banking) {
    return {banking.account.id, dossier.person.id};
}

/// Those whom the story is about: the first three numbers of client 123 and of client 1. A form proposes the
/// first two.
enum Role : std::size_t {
    baker_first,
    baker_second,  ///< created in the story
    baker_regulator,
    doctor_first,
    doctor_second,
    doctor_regulator,
    role_count,
};

/// Makes dossiers of one side. All keys come from one row of numbers, every second for each side, so that no
/// key fits into a table that it does not belong to.
class DossierMaker {
public:
    /// clients: of the whole database; they outlive the maker.
    DossierMaker(Side side, ClientBook& clients);

    /// They are asked for in the order of the roles, before any other.
    Dossier cast(Role role, PartnerLists& lists, Random& random);

    /// Of any client, most of them of a few.
    Dossier any(PartnerLists& lists, Random& random);

    /// Of that client, by its place among all.
    Dossier any_of_client(std::size_t client, PartnerLists& lists, Random& random);

    Residence residence(const Dossier& dossier, Random& random);
    Banking banking(const Dossier& dossier, PartnerLists& lists, Random& random);
    AccountExtra extra(const BankAccount& account, Random& random);

    static std::string any_name(Random& random);
    /// Another note.
    static void annotate(AccountExtra& extra, Random& random);
    /// Another street and town.
    static void move(Address& address, Random& random);
    static std::string iban(const Bank& bank, Random& random);

private:
    Dossier of_client(std::size_t client, std::string short_name, std::string name, PartnerLists& lists,
                      Random& random);
    std::int32_t take_key();

    Side side_;
    ClientBook* clients_;
    std::int32_t next_key_;
    std::vector<std::int32_t> next_numbers_;  ///< by client
};

}  // namespace prot::sample
