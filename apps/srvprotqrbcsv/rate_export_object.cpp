#include "apps/srvprotqrbcsv/rate_export_object.h"

#include "platform/windows/com/bstr.h"

namespace prot {

namespace {

constexpr Owner owner = {"CProtDevCsv", "gCSVAusgabe"};

/// True for as long as it lives.
class Flag {
public:
    explicit Flag(bool& flag) : flag_(flag) { flag_ = true; }
    ~Flag() { flag_ = false; }
    Flag(const Flag&) = delete;
    Flag& operator=(const Flag&) = delete;

private:
    bool& flag_;
};

}  // namespace

RateExportObject::RateExportObject() : exporter_(host_.environment()) {}

void RateExportObject::run(const ExportSettings& settings, const ExportCall& call) {
    if (running_)
        named_after(owner, [] {
            throw AutomationError(ErrorNumber::internal,
                                  "Dieses Objekt exportiert gerade; ein zweiter Lauf braucht ein eigenes.");
        });
    const Flag running(running_);
    run_export(exporter_, owner, host_, settings, call);
}

HRESULT RateExportObject::get_gCSVFile(BSTR* value) noexcept {
    if (!value) return E_POINTER;
    *value = nullptr;
    return report_errors(__uuidof(_CProtDevCsv), [&] { *value = Bstr(exporter_.gCSVFile).release(); });
}

}  // namespace prot
