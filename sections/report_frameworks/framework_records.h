#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/log_row.h"
#include "core/lookup_memory.h"
#include "core/run.h"
#include "sections/report_frameworks/framework_names.h"

namespace prot::report_frameworks {

/// What a reader knows a log row's record by.
struct RecordInfo {
    std::string framework, density, text;
};

/// Climbs from the record of a log row to its framework, and finds the density through the log.
class FrameworkRecords {
public:
    explicit FrameworkRecords(Run& run) : run_(run), names_(run) {}

    /// For the row of `sTabelle`, changed at dtDatum. All empty for frameworks, densities and report kinds,
    /// and for any other table.
    RecordInfo mGetAuswInfos(std::string_view sTabelle, const LogRow& row, Date dtDatum);

    /// The value as of dtDatum by the first change since, or else, also when that tells none, the live one;
    /// empty when there is none.
    std::string PROT_gsGetValueByDate(const ValueKey& key, Date dtDatum);

private:
    std::string live_value(const ValueKey& key);

    struct RecordKind {
        std::string_view table, procedure;
        RecordInfo (FrameworkRecords::*info)(const LogRow& row, Date dtDatum);
    };
    static const RecordKind record_kinds[];
    using NameLookup = std::string (FrameworkNames::*)(std::int32_t, Date);

    RecordInfo mGetInfoAuswertungsPosition(const LogRow& row, Date dtDatum);
    RecordInfo mGetInfoFormelPosition(const LogRow& row, Date dtDatum);
    RecordInfo mGetInfoAuswertungsZelle(const LogRow& row, Date dtDatum);
    RecordInfo mGetInfoZeilenart(const LogRow& row, Date dtDatum);
    RecordInfo mGetInfoAuswertungsSpalte(const LogRow& row, Date dtDatum);
    RecordInfo mGetInfoSpaltenFormate(const LogRow& row, Date dtDatum);

    RecordInfo info_by(const RecordKind& kind, const LogRow& row, Date dtDatum);
    RecordInfo info_of_position(std::int32_t position, Date dtDatum);
    std::int32_t density_of_position(std::int32_t position, Date dtDatum);
    std::int32_t density_of_framework(std::int32_t framework, Date dtDatum);
    std::int32_t id_in_log(std::string_view table, std::string_view column, std::string_view key_column,
                           std::int32_t key, Date dtDatum);
    RecordInfo named(std::int32_t framework, std::int32_t density, NameLookup lookup, std::int32_t record,
                     Date dtDatum);

    Run& run_;
    FrameworkNames names_;
};

}  // namespace prot::report_frameworks
