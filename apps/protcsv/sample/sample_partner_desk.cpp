#include "apps/protcsv/sample/sample_partner_desk.h"

#include <algorithm>
#include <utility>

namespace prot::sample {
namespace {

constexpr std::int64_t fewest_early_partners = 60;
constexpr std::int64_t most_partners = 40'000;

// No more than this has a change.
constexpr std::int64_t most_rows_of_a_change = 14;

constexpr std::int32_t discount_steps = 25;
constexpr std::int32_t postal_address = 2;

// No note is common: the column is NULL then.
constexpr std::string_view notes[] = {
    "Belege vorab prüfen", "Rechnung nur per E-Mail", "Sammelrechnung", "Bestellnummer angeben", "", "",
};

template <class Record>
std::int32_t any_entry(std::vector<Record>& list, Random& random) {
    return random.pick(usual(list)).id;
}

}  // namespace

PartnerDesk::PartnerDesk(Side side, Random random, std::int64_t rows, ClientBook& clients)
    : DeskOfLongChanges(rows), random_(random), lists_(side), maker_(side, clients) {
    for (std::size_t role = 0; role < role_count; ++role)
        cast_[role] = maker_.cast(static_cast<Role>(role), lists_, random_);
    const std::int64_t count = std::clamp(rows / 25, fewest_early_partners, most_partners / 2);
    for (std::int64_t number = 0; number < count; ++number) add_early(static_cast<std::size_t>(number));
    for (const Role role : {baker_first, doctor_first}) {
        Banking& banking = cast_[role].bankings.front();
        banking.extra = maker_.extra(banking.account, random_);
    }
    cast_[doctor_second].purposes.push_back(
        {side, cast_[doctor_second].partner.id, lists_.of(ListKind::purposes).front().id});
}

/// The first ones give each client one whom every sample database knows.
void PartnerDesk::add_early(std::size_t number) {
    const bool in_turn = number < known_clients().size();
    Dossier& dossier = others_.emplace_back(in_turn ? maker_.any_of_client(number, lists_, random_)
                                                    : maker_.any(lists_, random_));
    Banking& banking = dossier.bankings.front();
    const Partner& partner = dossier.partner;
    if (random_.percent(40)) banking.extra = maker_.extra(banking.account, random_);
    if (random_.percent(50))
        dossier.purposes.push_back(
            {partner.side, partner.id, any_entry(lists_.of(ListKind::purposes), random_)});
}

LogRow PartnerDesk::add_any(const Occasion& occasion) {
    if (is_closing(occasion)) return touch_any(occasion);
    if (static_cast<std::int64_t>(others_.size()) >= most_partners) return dissolve_any(occasion);
    return create(others_.emplace_back(maker_.any(lists_, random_)), occasion);
}

LogRow PartnerDesk::dissolve_any(const Occasion& occasion) {
    if (is_closing(occasion)) return touch_any(occasion);
    Dossier& place = any_other();
    std::swap(place, others_.back());
    LogRow row = dissolve(others_.back(), occasion);
    others_.pop_back();
    return row;
}

LogRow PartnerDesk::touch_any(const Occasion& occasion) {
    return log_change(any_other().partner, occasion, [](Partner&) {});
}

LogRow PartnerDesk::change_conditions(const Occasion& occasion) {
    return log_change(any_other().partner, occasion, [&](Partner& partner) {
        const std::int64_t dice = random_.below(100);
        if (dice < 60) partner.limit = (partner.limit / 5'000 + random_.between(1, 100)) % 20'000 * 5'000;
        if (dice >= 45) partner.discount = (partner.discount / discount_steps + 1) % 40 * discount_steps;
        if (dice >= 80) partner.note = random_.pick(notes);
        partner.import_mark = occasion.author.employee == 0 ? "Abgleich" : "";
    });
}

LogRow PartnerDesk::assign(const Occasion& occasion) {
    return log_change(any_other().partner, occasion, [&](Partner& partner) {
        const std::int64_t dice = random_.below(100);
        const bool none = random_.percent(15);
        if (dice < 50)
            partner.terms = none ? 0 : random_.pick(lists_.usual_terms);
        else if (dice < 75)
            partner.dunning = none ? 0 : any_entry(lists_.of(ListKind::dunning), random_);
        else if (dice < 90)
            partner.texts = none ? 0 : any_entry(lists_.of(ListKind::text_groups), random_);
        else
            partner.regulator = none ? 0 : regulator_of(partner);
    });
}

LogRow PartnerDesk::move_any(const Occasion& occasion) {
    return move(any_other().residences.front().address, occasion);
}

LogRow PartnerDesk::rename_any(const Occasion& occasion) {
    if (is_closing(occasion)) return touch_any(occasion);
    Dossier& dossier = any_other();
    std::string name = dossier.personal_data.name;
    while (name == dossier.personal_data.name) name = DossierMaker::any_name(random_);
    return rename(dossier, occasion, name);
}

LogRow PartnerDesk::change_account(const Occasion& occasion) {
    return log_change(any_other().bankings.front().account, occasion, [&](BankAccount& account) {
        const Bank& bank = random_.pick(usual(lists_.banks));
        account.bank_id = bank.id;
        account.iban = DossierMaker::iban(bank, random_);
        account.import_mark = occasion.author.employee == 0 ? "Abgleich" : "";
    });
}

LogRow PartnerDesk::change_extra(const Occasion& occasion) {
    Dossier& dossier = any_other();
    std::optional<AccountExtra>& extra = dossier.bankings.front().extra;
    if (!extra) return add_extra(dossier, occasion);
    return log_change(*extra, occasion,
                      [&](AccountExtra& changed) { DossierMaker::annotate(changed, random_); });
}

LogRow PartnerDesk::change_accounts(const Occasion& occasion) {
    if (is_closing(occasion)) return touch_any(occasion);
    Dossier& dossier = any_other();
    return dossier.bankings.size() == 1 ? open_account(dossier, occasion) : close_account(dossier, occasion);
}

LogRow PartnerDesk::change_purposes(const Occasion& occasion) {
    Dossier& dossier = any_other();
    if (!dossier.purposes.empty()) return remove_purpose(dossier, occasion);
    return add_purpose(dossier, occasion, any_entry(lists_.of(ListKind::purposes), random_));
}

LogRow PartnerDesk::change_terms(const Occasion& occasion) {
    return log_change(random_.pick(usual(lists_.terms)), occasion, [&](Terms& terms) {
        if (random_.percent(50)) {
            terms.due_days = terms.due_days % 90 + 5;
        } else {
            terms.days1 = terms.days1 % 20 + 2;
            terms.rate1 = terms.rate1 % 500 + 50;
        }
    });
}

LogRow PartnerDesk::create(Dossier& dossier, const Occasion& occasion) {
    dossier.exists = true;
    create_record(dossier.person, occasion);
    create_record(dossier.personal_data, occasion);
    for (Residence& residence : dossier.residences) {
        create_record(residence.address, occasion);
        create_record(residence.link, occasion);
    }
    for (Banking& banking : dossier.bankings) create_account(dossier, banking, occasion);
    create_record(dossier.partner, occasion);
    for (PurposeLink& purpose : dossier.purposes) create_record(purpose, occasion);
    return next_row();
}

LogRow PartnerDesk::dissolve(Dossier& dossier, const Occasion& occasion) {
    dossier.exists = false;
    for (const PurposeLink& purpose : dossier.purposes) delete_record(purpose, occasion);
    delete_record(dossier.partner, occasion);
    for (const Banking& banking : dossier.bankings) delete_account(dossier, banking, occasion);
    for (const Residence& residence : dossier.residences) {
        delete_record(residence.link, occasion);
        delete_record(residence.address, occasion);
    }
    delete_record(dossier.personal_data, occasion);
    delete_record(dossier.person, occasion);
    return next_row();
}

LogRow PartnerDesk::rename(Dossier& dossier, const Occasion& occasion, const std::string& name) {
    queue(log_change(dossier.personal_data, occasion, [&](PersonalData& data) { data.name = name; }));
    queue(log_change(dossier.person, occasion, [&](Person& person) {
        person.short_name = name;
        person.name = name;
    }));
    return next_row();
}

LogRow PartnerDesk::move(Address& address, const Occasion& occasion) {
    return log_change(address, occasion, [&](Address& moved) { DossierMaker::move(moved, random_); });
}

LogRow PartnerDesk::add_residence(Dossier& dossier, const Occasion& occasion) {
    Residence& residence = dossier.residences.emplace_back(maker_.residence(dossier, random_));
    residence.link.type = postal_address;
    create_record(residence.address, occasion);
    create_record(residence.link, occasion);
    return next_row();
}

LogRow PartnerDesk::remove_residence(Dossier& dossier, const Occasion& occasion) {
    delete_record(dossier.residences.back().link, occasion);
    delete_record(dossier.residences.back().address, occasion);
    dossier.residences.pop_back();
    return next_row();
}

LogRow PartnerDesk::open_account(Dossier& dossier, const Occasion& occasion) {
    Banking& banking = dossier.bankings.emplace_back(maker_.banking(dossier, lists_, random_));
    create_account(dossier, banking, occasion);
    return next_row();
}

LogRow PartnerDesk::close_account(Dossier& dossier, const Occasion& occasion) {
    delete_account(dossier, dossier.bankings.back(), occasion);
    dossier.bankings.pop_back();
    return next_row();
}

LogRow PartnerDesk::unlink_account(Dossier& dossier, const Occasion& occasion) {
    Banking& banking = dossier.bankings.back();
    banking.linked = false;
    delete_record(link_of(dossier, banking), occasion);
    return next_row();
}

LogRow PartnerDesk::add_extra(Dossier& dossier, const Occasion& occasion) {
    Banking& banking = dossier.bankings.back();
    banking.extra = maker_.extra(banking.account, random_);
    return log_creation(*banking.extra, occasion);
}

LogRow PartnerDesk::add_purpose(Dossier& dossier, const Occasion& occasion, std::int32_t purpose_id) {
    return log_creation(
        dossier.purposes.emplace_back(PurposeLink{dossier.partner.side, dossier.partner.id, purpose_id}),
        occasion);
}

LogRow PartnerDesk::remove_purpose(Dossier& dossier, const Occasion& occasion) {
    delete_record(dossier.purposes.back(), occasion);
    dossier.purposes.pop_back();
    return next_row();
}

/// A partner's central regulator is of the same client.
std::int32_t PartnerDesk::regulator_of(const Partner& partner) const {
    const Partner& regulator = cast_[baker_regulator].partner;
    return regulator.client_id == partner.client_id ? regulator.person_id : 0;
}

bool PartnerDesk::is_closing(const Occasion& occasion) const {
    return is_too_late(occasion, most_rows_of_a_change);
}

void PartnerDesk::create_account(const Dossier& dossier, Banking& banking, const Occasion& occasion) {
    AccountLink link = link_of(dossier, banking);
    create_record(banking.account, occasion);
    create_record(link, occasion);
    if (banking.extra) create_record(*banking.extra, occasion);
}

void PartnerDesk::delete_account(const Dossier& dossier, const Banking& banking, const Occasion& occasion) {
    if (banking.extra) delete_record(*banking.extra, occasion);
    if (banking.linked) delete_record(link_of(dossier, banking), occasion);
    delete_record(banking.account, occasion);
}

}  // namespace prot::sample
