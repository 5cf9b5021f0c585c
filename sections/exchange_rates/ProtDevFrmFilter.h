#pragma once

#include <string>

#include "platform/database.h"
#include "platform/environment.h"
#include "platform/form.h"

namespace prot {

/// The filter form of the exchange rates: a range of currencies by ISO code. In batch mode it is loaded and
/// never shown.
class ProtDevFrmFilter {
public:
    explicit ProtDevFrmFilter(Environment& environment) : environment_(environment) {}
    ProtDevFrmFilter(const ProtDevFrmFilter&) = delete;
    ProtDevFrmFilter& operator=(const ProtDevFrmFilter&) = delete;

    /// The form as it is described, without entries.
    Form described_form();

    /// Asks for the range. sWhere: condition on the currency table. sFilter: what the file's first line says.
    /// sCommandline: emptied when it is not a batch text for this section; the run is interactive then. False
    /// when the person cancels, or when an error was shown.
    bool gbGetFilter(std::string& sWhere, std::string& sFilter, Database& oDBU, std::string& sCommandline);

private:
    struct Range {
        std::string from, to;
    };

    void load(Database& oDBU);
    bool accept(std::string& sCommandline, Range& range);
    bool mIsoWaehrungLesen();
    bool mbCommandlineOk(const std::string& sCommandline, Range& range);
    Range selected_range() const;

    void Form_Load();
    void Form_KeyDown(const KeyStroke& key);
    void Form_Unload();
    void cmdOK_Click();
    void cmdCancel_Click();

    Environment& environment_;
    Form form_;
    Database* oDBU_ = nullptr;  // from gbGetFilter until the form unloads
    bool accepted_ = false;
    bool failed_ = false;  // an error was shown
    std::string filter_;   // the last description built
};

}  // namespace prot
