#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/export_frame.h"
#include "core/id_memory.h"

namespace prot::open_items {

/// The cells before the common ones.
enum ItemCell : std::size_t { item_account, item_number, item_document_date };

inline constexpr std::array<std::string_view, 3> item_captions = {"Konto", "Op-Nr", "Belegdatum"};

/// The lines of open items: the item as it is now, captions, values of kind and dunning block in words.
class ItemLines : public SectionLines {
public:
    explicit ItemLines(Run& run) : run_(run) {}

    bool describe_record(const LogRow& row, CsvLine& line) override;
    std::string_view caption(const ChangedField& field) override;
    std::string translated_value(const ChangedField& field, std::string_view value) override;

private:
    struct Item {
        std::string account, number, document_date;
    };

    const Item& mGetOPInfos(std::int32_t lId);

    Run& run_;
    IdMemory<Item> items_;  // each asked once in a run
};

/// The caption of a changed field; empty for fields that are never exported, whatever their letter case, and
/// for those without caption.
std::string_view msDBGetFieldDescription(const ChangedField& field, Run& run);

/// What a reader understands by the logged value of a field; empty when the logged value stays.
std::string msTranslateID(std::string_view value, const ChangedField& field);

}  // namespace prot::open_items
