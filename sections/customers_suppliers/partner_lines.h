#pragma once

#include <array>
#include <string>
#include <string_view>

#include "core/export_frame.h"
#include "sections/customers_suppliers/ledger.h"
#include "sections/customers_suppliers/partner_records.h"
#include "sections/customers_suppliers/partner_translations.h"

namespace prot::customers_suppliers {

/// The cells before the common ones.
enum PartnerCell : std::size_t { partner_number, partner_name };

/// The lines of customers and suppliers: whom a change concerns, captions by table, ids as names.
class PartnerLines : public SectionLines {
public:
    PartnerLines(Run& run, const Ledger& ledger)
        : run_(run), records_(run, ledger), translations_(run, ledger) {}

    LineRules rules() const override;
    bool describe_record(const LogRow& row, CsvLine& line) override;
    std::string_view caption(const ChangedField& field) override;
    std::string translated_value(const ChangedField& field, std::string_view value) override;

private:
    Run& run_;
    PartnerRecords records_;
    PartnerTranslations translations_;
    std::string scratch_;
};

/// The caption of a changed field, which depends on its table; empty for fields that are not exported.
std::string_view msDBGetFieldDescription(const ChangedField& field, Run& run);

}  // namespace prot::customers_suppliers
