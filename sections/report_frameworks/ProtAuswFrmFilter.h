#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/filter_form.h"
#include "sections/report_frameworks/frameworks.h"

namespace prot::report_frameworks {

/// The filter form of the report frameworks: their kind and type, one of them or all, the kind of change, and
/// for account assignments a chart of accounts.
class ProtAuswFrmFilter : public FilterForm {
public:
    /// mlAenderungsart: the kind of change that the last call chose.
    ProtAuswFrmFilter(Environment& environment, ChangeKind mlAenderungsart);

    Form described_form() override;

    /// What the fields hold, whether they were accepted or not.
    Filter filter() const;

    /// The live ids of the frameworks of an accepted filter, a subselect in parentheses.
    const std::string& sRahmenIds() const { return framework_ids_; }

private:
    void fill() override;
    BatchItems batch_items(const std::string& sCommandline) override { return split_items(sCommandline); }
    void begin_batch() override;
    std::span<const std::string_view> batch_keys() const override { return keys; }
    void start_batch() override { rejected_ = false; }
    BatchReading read_value(std::string_view key, const std::string& value) override;
    bool end_batch() override;
    std::string take_over(bool by_batch) override;

    void mCBOBasisFuellen();
    void mRahmenFuellen();
    void mLoesAuswRahmen();
    void mShowKontorahmen();
    std::string mInfoAufbereiten();

    void optStandard_Click();
    void optKanzlei_Click();
    void kind_chosen();
    void cboRahmenArt_Change();
    void cboAenderungen_Change();
    void cmdOK_Click();

    using Use = BatchReading::Use;
    Use read_kind(const std::string& value);
    Use read_type(const std::string& value);
    Use read_framework(const std::string& value);
    Use read_change_kind(const std::string& value);
    Use read_chart(const std::string& value);

    Field& field(std::string_view name) { return form_.field(name); }
    std::int64_t key_of(std::string_view list) const;

    static constexpr std::string_view chart_key = "kontenrahmen:";
    static constexpr std::string_view keys[] = {
        "stdkanz:", "auswertung:", "auswertungsrahmen:", "awraend:", chart_key};
    struct BatchChoice {
        std::string_view list;
        Use (ProtAuswFrmFilter::*read)(const std::string& value);
    };
    static const BatchChoice batch_choices[];  // of each key

    const ChangeKind proposed_change_;
    bool rejected_ = false;     // the batch text names a kind of framework that does not exist
    bool batch_chart_ = false;  // the batch text chooses a chart of accounts
    std::string framework_ids_;
};

}  // namespace prot::report_frameworks
