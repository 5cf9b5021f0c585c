#pragma once

#include <string>

#include "core/filter_form.h"

namespace prot::exchange_rates {

/// The filter form of the exchange rates: a range of currencies by ISO code.
class ProtDevFrmFilter : public FilterForm {
public:
    explicit ProtDevFrmFilter(Environment& environment);

    Form described_form() override;

    /// The condition on the currency table of an accepted filter.
    const std::string& sWhere() const { return where_; }

private:
    struct Range {
        std::string from, to;
    };

    static constexpr std::string_view keys[] = {"vondevi", "bisdevi"};

    void fill() override { mIsoWaehrungLesen(); }
    void begin_batch() override { batch_ = selected_range(); }
    std::span<const std::string_view> batch_keys() const override { return keys; }
    BatchReading read_value(std::string_view key, const std::string& value) override;
    bool end_batch() override;
    std::string take_over(bool by_batch) override;
    void mIsoWaehrungLesen();
    void cmdOK_Click();
    Range selected_range() const;

    Range batch_;
    std::string where_;
};

}  // namespace prot::exchange_rates
