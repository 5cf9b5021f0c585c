#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/client_range_form.h"
#include "sections/open_items/fiscal_years.h"

namespace prot::open_items {

/// The filter form of the open items: a client or office (a deletion may cover all of them), its fiscal year,
/// a range of accounts.
class ProtOPFrmFilter : public ClientRangeForm {
public:
    /// bLoeschen: all clients and offices together are offered too.
    ProtOPFrmFilter(Environment& environment, bool bLoeschen);

    Form described_form() override;

    /// The condition on the open items of an accepted filter, empty for all.
    const std::string& sWhere() const { return where_; }

private:
    void fill() override;
    void begin_batch() override;
    std::span<const std::string_view> batch_keys() const override { return keys; }
    BatchReading read_value(std::string_view key, const std::string& value) override;
    bool end_batch() override;
    std::string take_over(bool by_batch) override;
    void client_chosen(const Selection& selection) override { mFuelleWJListe(selection); }

    static constexpr std::string_view year_key = "wirtschaftsjahr:";
    static constexpr std::string_view keys[] = {year_key, range_keys[0], range_keys[1], range_keys[2]};

    BatchReading::Use choose_batch_year();

    void mInitCBO_MandKanz();
    void mFuelleWJListe(const Selection& selection);
    void mFuellenFelder(const FiscalYear& year);
    std::string msMandantId(ClientKind kind);

    Field& years() { return form_.field("cboWirtschaftsjahr"); }
    std::int64_t chosen_year();
    std::string condition(const Selection& selection, std::int64_t fiscal_year) const;

    const bool deleting_;
    std::string batch_year_text_;
    std::int64_t batch_year_ = 0;  // its key; 0 for all
    std::string fiscal_years_;     // ids of the client's, joined
    std::string where_;
};

}  // namespace prot::open_items
