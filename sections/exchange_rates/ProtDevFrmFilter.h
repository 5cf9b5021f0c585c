#pragma once

#include <string>

#include "core/filter_form.h"

namespace prot::exchange_rates {

/// The filter form of the exchange rates: a range of currencies by ISO code.
class ProtDevFrmFilter : public FilterForm {
public:
    explicit ProtDevFrmFilter(Environment& environment);

    /// Asks for the range. sWhere: condition on the currency table. sFilter: what the file's first line says.
    /// sCommandline: emptied when it is not a batch text for this section; the run is interactive then. False
    /// when the person cancels, or when an error was shown.
    bool gbGetFilter(std::string& sWhere, std::string& sFilter, Database& oDBU, std::string& sCommandline);

    Form described_form() override;

private:
    struct Range {
        std::string from, to;
    };

    void fill(Database& oDBU) override;
    bool mbCommandlineOk(const std::string& sCommandline) override;
    void mIsoWaehrungLesen();
    void cmdOK_Click();
    Range selected_range() const;

    Range range_;  // of the batch text
};

}  // namespace prot::exchange_rates
