#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "core/id_memory.h"
#include "core/run.h"
#include "sections/customers_suppliers/ledger.h"

namespace prot::customers_suppliers {

/// What the log tells about the person of a row: nothing; the row's key is the person's; the person; the key
/// of the master row, which in turn has a person.
enum class PersonBy : std::uint8_t { nothing, key, log, master_row };

/// Which customer or supplier a log row belongs to: by the live tables, or by the log itself when they do not
/// tell any more. Each statement is sent once in the life of the object, which is a run, but for the names
/// that depend on a moment.
class PartnerRecords {
public:
    PartnerRecords(Run& run, const Ledger& ledger);

    /// Number and name for the row of `sTabelle` whose key is lKey (dlPrimaryKey1), changed at dtDatum. Terms
    /// of payment belong to many: their number is " - ", the name their own. Whoever is not known is called
    /// "nicht gefunden!"; so is one whose name depends on the moment of a change without moment.
    void mGetKLInfos(std::string_view sTabelle, std::int32_t lKey, std::string& sNr, std::string& sName,
                     std::optional<Date> dtDatum);

    /// The FROM and WHERE that lead from a logged table's row to its customer or supplier; empty for a table
    /// whose rows belong to nobody.
    std::string msKLFromWhere(std::int32_t lKey, std::string_view sTabelle);

private:
    /// A customer or supplier, if the live tables know one.
    struct Partner {
        bool found = false;
        std::string sNr, sName;

        auto operator<=>(const Partner&) const = default;
    };

    /// A person whom the log has named. Of one without a live customer or supplier: the number by the log,
    /// and the key of the personal data, 0 for none.
    struct Person {
        Partner partner;
        std::int32_t personal_data = 0;
    };

    /// A logged table, and the one that links persons to its rows: their statements, and the answers by key.
    struct Table {
        std::string name;
        std::string_view link;
        std::string from_where;
        PersonBy person_by;
        std::string in_log;
        IdMemory<const Partner*> partners{};
        IdMemory<std::int32_t> persons{};
    };

    void mInfosFromProtokoll(Table* table, std::int32_t lKey, std::string& sNr, std::string& sName,
                             std::optional<Date> dtDatum);

    Table* find(std::string_view sTabelle);
    static Partner partner_in(const RowSet& rows, std::size_t number, std::size_t name);
    const Partner& live_partner(Table& table, std::int32_t lKey);
    std::int32_t person_in_log(Table& table, std::int32_t lKey);
    const Person& person(std::int32_t id);
    std::string terms_at(std::int32_t lKey, std::optional<Date> dtDatum);
    std::string name_at(std::int32_t personal_data, std::optional<Date> dtDatum);

    Run& run_;
    const Ledger& ledger_;
    std::vector<Table> tables_;
    std::set<Partner> live_partners_;  // each once; many rows are a partner's
    IdMemory<Person> persons_;
};

}  // namespace prot::customers_suppliers
