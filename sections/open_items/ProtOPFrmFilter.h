#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/filter_form.h"
#include "sections/open_items/clients.h"

namespace prot::open_items {

/// The filter form of the open items: a client or office (a deletion may cover all of them), its fiscal year,
/// a range of accounts.
class ProtOPFrmFilter : public FilterForm {
public:
    explicit ProtOPFrmFilter(Environment& environment);

    /// Asks for the filter. sWhere: condition on the open items, empty for all. sFilter: what the file's
    /// first line says. bLoeschen: all clients and offices together are offered too. sCommandline: emptied
    /// when it is not a batch text. False when the person cancels, or when an error was shown.
    bool gbGetFilter(std::string& sWhere, std::string& sFilter, bool bLoeschen, Database& oDBU,
                     std::string& sCommandline);

    Form described_form() override;

private:
    struct Selection {
        ClientKind kind = ClientKind::client;
        Client client;
        std::int64_t fiscal_year = 0;  ///< its key; 0 for all
        double from = 0, to = 0;       ///< accounts
    };

    void fill(Database& oDBU) override;
    void fill_for_person() override;
    bool mbCommandlineOk(const std::string& sCommandline) override;

    void mInitCBO_MandKanz();
    void mMandantAuswahl();
    void mFuelleWJListe(const Selection& selection);
    void ctlMandant_Change();
    bool txtKLNr_Validate(std::size_t field);
    void cmdOK_Click();

    void read_client(std::string_view value);
    void select_fiscal_year(std::string_view text);
    Selection chosen() const;
    std::string condition(const Selection& selection) const;

    bool bLoeschen_ = false;
    Selection batch_;
    std::vector<std::string> fiscal_years_;  // ids of the client's, in the order of the list
};

}  // namespace prot::open_items
