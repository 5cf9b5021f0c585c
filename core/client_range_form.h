#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "core/clients.h"
#include "core/filter_form.h"
#include "core/number_range.h"

namespace prot {

/// A kind of choice that a section's form offers, with the section's own key number for it. Those that name
/// no single client or office are offered to a deletion only: an export always concerns one.
struct KindChoice {
    std::int64_t key;
    ClientKind kind;
};

/// The filter form of a client or office and a range of numbers: its fields, what they do together, and how a
/// batch text chooses them. Controls: cboMandant, ctlMandant, txtKLNr(0) and txtKLNr(1).
class ClientRangeForm : public FilterForm {
public:
    struct Selection {
        ClientKind kind = ClientKind::client;
        Client client;  ///< none for a collective kind
        NumberRange range;
    };

protected:
    /// kinds lives as long as the program.
    ClientRangeForm(Environment& environment, std::string_view owner, std::span<const KindChoice> kinds)
        : FilterForm(environment, owner), kinds_(kinds) {}

    /// The fields, as a section's form describes them.
    Field kind_field();
    Field client_field();
    /// bound: 0 from, 1 to.
    Field number_field(std::size_t bound, std::string_view label);

    /// Fills the kinds, the collective ones too for a deletion, and the default range.
    void offer(bool bLoeschen, std::string_view from, std::string_view to);
    void fill_for_person() override { mMandantAuswahl(); }

    void cboMandant_Click() { mMandantAuswahl(); }
    void mMandantAuswahl();
    void ctlMandant_Change();
    bool txtKLNr_Validate(std::size_t bound);
    void cmdOK_Click();

    /// Another client, office or kind has been chosen, by whichever way.
    virtual void client_chosen(const Selection& /*selection*/) {}

    void begin_batch() override;
    std::span<const std::string_view> batch_keys() const override { return range_keys; }
    BatchReading read_value(std::string_view key, const std::string& value) override;
    bool end_batch() override;

    static constexpr std::string_view client_key = "mandant:";
    static constexpr std::string_view range_keys[] = {client_key, "vonkonto", "biskonto"};

    /// What the batch text chose, or what the fields hold.
    Selection selection(bool by_batch) const { return by_batch ? batch_ : chosen(); }
    /// The beginning of the filter text: kind, and client or office.
    static std::string text_of(const Selection& selection);

private:
    Selection chosen() const;
    NumberRange entered_range() const;
    BatchReading read_client(std::string_view value);
    Field& field(std::string_view name) { return form_.field(name); }
    const Field& field(std::string_view name) const { return form_.field(name); }
    std::size_t index_of_bound(std::size_t bound) const;

    std::span<const KindChoice> kinds_;
    Selection batch_;
};

}  // namespace prot
