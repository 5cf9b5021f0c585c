#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "apps/protcsv/sample/sample_records.h"

/// Currencies and exchange rates of a sample database, and the log rows of their changes.
namespace prot::sample {

struct Currency {
    std::int32_t id;  ///< idDevisenWaehr
    std::string_view code;
    std::string_view name;
    int decimals;
};

/// Units of a currency for one euro, in 1/10000.
struct Quote {
    std::int64_t bid;
    std::int64_t ask;  ///< above bid
};

/// One exchange rate. Empty texts are NULL in the table.
struct Rate {
    std::int32_t id;           ///< idDevisenKurs
    std::int32_t currency_id;  ///< flDevisenWaehr
    Day valid_from;
    Quote quote;
    std::int32_t deviation;  ///< from the day before, in 1/100 percent; 0: NULL
    std::string_view source;
    std::string_view remark;
    std::string_view reason;  ///< long text
    std::string_view import_mark;
    Moment changed;
    std::int32_t employee;
};

/// Prices of one unit of the currency in euro, in 1/1000000.
std::int64_t foreign_bid(const Quote& quote);
std::int64_t foreign_ask(const Quote& quote);

LogRow log_row(const Occasion& occasion, const Currency* before, const Currency* after);
LogRow log_row(const Occasion& occasion, const Rate* before, const Rate* after);

}  // namespace prot::sample
