#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/client_range_form.h"
#include "sections/customers_suppliers/partner_selection.h"

namespace prot::customers_suppliers {

/// What the form of customers says, and that of suppliers.
struct FilterTexts {
    std::string_view caption, help_id, group;
    std::string_view from_label, to_label;      ///< of the number
    std::string_view default_from, default_to;  ///< the range that is proposed
    std::string_view number;                    ///< in the filter text
};

/// The filter form of customers (section 9) and suppliers: a client or office, or for a deletion all of them,
/// and a range of numbers.
class ProtKLFrmFilter : public ClientRangeForm {
public:
    ProtKLFrmFilter(Environment& environment, std::int32_t lSection, bool bLoeschen);

    Form described_form() override;

    /// The selection of an accepted filter.
    const Filter& filter() const { return filter_; }

private:
    void fill() override { mInitMandKanz(); }
    BatchItems batch_items(const std::string& sCommandline) override;
    bool end_batch() override;
    std::string take_over(bool by_batch) override;

    void mInitMandKanz();

    const FilterTexts& texts_;
    const bool deleting_;
    bool dsgvo_ = false;  // of the batch text: it is about the data of one person, for whom a form is shown
    Filter filter_;
};

}  // namespace prot::customers_suppliers
