#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/id_memory.h"
#include "core/run.h"

namespace prot::report_frameworks {

/// Names of frameworks and of what they consist of, and the ids by which a record leads to its framework. The
/// live table is asked first, so that a record goes by its current name; the log tells those that are gone,
/// as they were at the date of the change. What neither knows is the empty text, or 0. Each live statement is
/// sent once in the life of the object, which is a run.
class FrameworkNames {
public:
    explicit FrameworkNames(Run& run) : run_(run) {}

    std::string msRahmenBez(std::int32_t lId, Date dtDatum) { return text(framework_name, lId, dtDatum); }
    std::string msDichteBez(std::int32_t lId, Date dtDatum) { return text(density_name, lId, dtDatum); }
    std::string msPosBez(std::int32_t lId, Date dtDatum) { return text(position_name, lId, dtDatum); }
    std::string msSpalteBez(std::int32_t lId, Date dtDatum) { return text(column_name, lId, dtDatum); }
    std::string msZeilenartBez(std::int32_t lId, Date dtDatum) { return text(line_kind_name, lId, dtDatum); }

    /// The framework of a line kind, and of a report kind.
    std::int32_t mlARa_Id_Zeilenart(std::int32_t lId, Date dtDatum) {
        return id(framework_of_line_kind, lId, dtDatum);
    }
    std::int32_t mlARa_Id_Auswertungsart(std::int32_t lId, Date dtDatum) {
        return id(framework_of_report_kind, lId, dtDatum);
    }
    /// The line kind of a position.
    std::int32_t mlZa_Id_AuswertungsPosition(std::int32_t lId, Date dtDatum) {
        return id(line_kind_of_position, lId, dtDatum);
    }

private:
    enum Which : std::size_t {
        framework_name,
        density_name,
        position_name,
        column_name,
        line_kind_name,
        framework_of_line_kind,
        framework_of_report_kind,
        line_kind_of_position,
        lookup_count,
    };
    struct Lookup {
        std::string_view procedure;
        std::string_view live;                       ///< the statement, up to the id
        std::string_view table, column, key_column;  ///< in the log
    };
    static const std::array<Lookup, lookup_count> lookups;

    std::string text(Which which, std::int32_t lId, Date dtDatum);
    std::int32_t id(Which which, std::int32_t lId, Date dtDatum);
    const std::string& live(Which which, std::int32_t lId);
    std::string logged(const Lookup& lookup, std::int32_t lId, Date dtDatum);

    Run& run_;
    std::array<IdMemory<std::string>, lookup_count> live_;
};

}  // namespace prot::report_frameworks
