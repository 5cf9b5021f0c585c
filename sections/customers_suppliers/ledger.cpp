#include "sections/customers_suppliers/ledger.h"

#include <utility>

#include "platform/automation/text_parts.h"

namespace prot::customers_suppliers {

std::string named(std::string_view pattern, const Ledger& ledger) {
    const struct {
        std::string_view mark, name;
    } names[] = {
        {"{master}", ledger.msStammTabelle},
        {"{person}", ledger.msPsIdSpalte},
        {"{id}", ledger.msIdSpalte},
        {"{number}", ledger.msNrSpalte},
        {"{spelled_table}", ledger.spelled_table},
        {"{spelled_number}", ledger.spelled_number},
        {"{purposes}", ledger.purposes},
        {"{purposes_owner}", ledger.purposes_owner},
    };
    std::string text(pattern);
    for (const auto& [mark, name] : names) text = replaced(std::move(text), mark, name);
    return text;
}

std::string keyed(std::string_view pattern, std::int32_t key) {
    return replaced(std::string(pattern), "{key}", std::to_string(key));
}

}  // namespace prot::customers_suppliers
