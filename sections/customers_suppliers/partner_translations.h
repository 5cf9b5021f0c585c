#pragma once

#include <array>
#include <string>
#include <string_view>

#include "core/field_rules.h"
#include "core/run.h"
#include "sections/customers_suppliers/ledger.h"

namespace prot::customers_suppliers {

/// The names of records that customers and suppliers refer to by id.
class PartnerTranslations {
public:
    PartnerTranslations(Run& run, const Ledger& ledger);

    /// The name that the record of id `vWert` had at the moment of the change, whatever the table of the
    /// field. A value that is no number counts as 0. Empty when the logged value stays: another field, a
    /// change without moment, a number outside 32 bits.
    std::string msTranslateID(std::string_view vWert, const ChangedField& field);

private:
    Run& run_;
    const std::array<IdRule, 7> rules_;
};

}  // namespace prot::customers_suppliers
