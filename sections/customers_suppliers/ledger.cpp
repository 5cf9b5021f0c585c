#include "sections/customers_suppliers/ledger.h"

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

std::string replaced(std::string text, std::string_view mark, std::string_view replacement) {
    for (std::size_t at = text.find(mark); at != std::string::npos;
         at = text.find(mark, at + replacement.size()))
        text.replace(at, mark.size(), replacement);
    return text;
}

}  // namespace prot::customers_suppliers
