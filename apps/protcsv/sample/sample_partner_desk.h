#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "apps/protcsv/sample/sample_dossiers.h"
#include "apps/protcsv/sample/sample_story.h"

namespace prot::sample {

/// The desk where customers or suppliers are kept: their present state, and the ways in which they change.
/// Every change keeps the present state and the log in step and returns its log row, or the first of them.
class PartnerDesk : public DeskOfLongChanges {
public:
    /// rows: of the log to come; the more rows, the more partners there are from the start. clients: outlive
    /// the desk.
    PartnerDesk(Side side, Random random, std::int64_t rows, ClientBook& clients);

    // Everyday changes. They happen to everybody but those whom the story is about.
    LogRow add_any(const Occasion& occasion);
    LogRow dissolve_any(const Occasion& occasion);
    LogRow touch_any(const Occasion& occasion);  ///< only when and by whom
    LogRow change_conditions(const Occasion& occasion);
    LogRow assign(const Occasion& occasion);  ///< terms, dunning, text group or regulator
    LogRow move_any(const Occasion& occasion);
    LogRow rename_any(const Occasion& occasion);
    LogRow change_account(const Occasion& occasion);
    LogRow change_extra(const Occasion& occasion);
    LogRow change_accounts(const Occasion& occasion);  ///< one more or one less
    LogRow change_purposes(const Occasion& occasion);  ///< one more or one less
    LogRow change_terms(const Occasion& occasion);     ///< of payment, which many use

    // Changes of one partner.
    LogRow create(Dossier& dossier, const Occasion& occasion);
    LogRow dissolve(Dossier& dossier, const Occasion& occasion);
    LogRow rename(Dossier& dossier, const Occasion& occasion, const std::string& name);
    LogRow move(Address& address, const Occasion& occasion);
    LogRow add_residence(Dossier& dossier, const Occasion& occasion);
    LogRow remove_residence(Dossier& dossier, const Occasion& occasion);
    LogRow open_account(Dossier& dossier, const Occasion& occasion);
    LogRow close_account(Dossier& dossier, const Occasion& occasion);
    LogRow unlink_account(Dossier& dossier, const Occasion& occasion);  ///< the account stays
    LogRow add_extra(Dossier& dossier, const Occasion& occasion);
    LogRow add_purpose(Dossier& dossier, const Occasion& occasion, std::int32_t purpose_id);
    LogRow remove_purpose(Dossier& dossier, const Occasion& occasion);

    Random& random() { return random_; }
    Dossier& cast(Role role) { return cast_[role]; }
    PartnerLists& lists() { return lists_; }

    std::span<const Dossier> cast() const { return cast_; }
    std::span<const Dossier> others() const { return others_; }
    const PartnerLists& lists() const { return lists_; }

private:
    void add_early(std::size_t number);
    void create_account(const Dossier& dossier, Banking& banking, const Occasion& occasion);
    void delete_account(const Dossier& dossier, const Banking& banking, const Occasion& occasion);
    std::int32_t regulator_of(const Partner& partner) const;
    bool is_closing(const Occasion& occasion) const;
    Dossier& any_other() { return any_of(others_, random_); }

    Random random_;
    PartnerLists lists_;
    DossierMaker maker_;
    std::array<Dossier, role_count> cast_;
    std::vector<Dossier> others_;
};

}  // namespace prot::sample
