#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/export_frame.h"
#include "core/id_memory.h"

namespace prot::exchange_rates {

/// The cells before the common ones.
enum RateCell : std::size_t { rate_iso_code, rate_currency_name, rate_valid_from };

inline constexpr std::array<std::string_view, 3> rate_captions = {"ISO Währungscode", "Bezeichnung",
                                                                  "Gültig ab"};

/// The lines of exchange rates: currency and validity of the rate as they are now, captions, values as
/// logged.
class RateLines : public SectionLines {
public:
    explicit RateLines(Run& run) : run_(run) {}

    bool describe_record(const LogRow& row, CsvLine& line) override;
    std::string_view caption(const ChangedField& field) override;
    std::string translated_value(const ChangedField& field, std::string_view value) override;

private:
    struct Currency {
        std::string iso_code, name;
    };

    const Currency& mGetWaehrInfos(std::int32_t lId);
    const std::string& mGetKursGueltigAb(std::int32_t lId);

    Run& run_;
    IdMemory<Currency> currencies_;  // each asked once in a run
    IdMemory<std::string> valid_from_;
};

/// The caption of a changed field of a rate; empty for fields that are never exported and for those without
/// caption.
std::string_view msDBGetFieldDescription(const ChangedField& field, Run& run);

/// What a reader understands by the logged value of a field; empty when the logged value stays. A record
/// without date keeps its logged values.
std::string msTranslateID(std::string_view value, const ChangedField& field, Run& run);

}  // namespace prot::exchange_rates
