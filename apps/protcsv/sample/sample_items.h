#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "apps/protcsv/sample/sample_records.h"

/// Open items of a sample database, and the log rows of their changes.
namespace prot::sample {

/// One open item. Empty texts are NULL in the table.
struct Item {
    std::int32_t id = 0;             ///< OP_ID
    std::int32_t year_id = 0;        ///< WJ_ID
    std::int32_t account = 0;        ///< OP_SKNR
    std::string_view series;         ///< of the number of its document
    std::int32_t document = 0;       ///< that number; 0: none
    Day document_date, due;          ///< due: the null moment for none
    std::int32_t kind = 0;           ///< OP_ART: 1 invoice, 2 payment; others have no name
    std::int64_t amount = 0;         ///< in cents
    std::int32_t discount = 0;       ///< in 1/100 percent; 0: NULL
    std::int32_t dunning_block = 0;  ///< OP_SPERR_KZ
    std::int32_t dunning_level = 0;
    std::string_view text;
    std::string_view note;  ///< long text
    std::string_view import_mark;
    std::int32_t settlement = 0;  ///< OP_AUSGLEICH_NR; 0: not settled, NULL
    Moment changed;
    std::int32_t employee = 0;
};

/// Numbers that the columns of an item make of its key.
std::int32_t booking_id(const Item& item);
std::int32_t batch_id(const Item& item);

/// OP_BELEG2: "RE-4711", "ZE-4712"; empty for none.
std::string document_number(const Item& item);

LogRow log_row(const Occasion& occasion, const Item* before, const Item* after);

}  // namespace prot::sample
