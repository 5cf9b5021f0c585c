#include "platform/windows/com/automation_values.h"

#include "platform/automation/error.h"
#include "platform/automation/text_forms.h"
#include "platform/windows/com/automation_element.h"
#include "platform/windows/com/bstr.h"
#include "platform/windows/com/safe_array_view.h"
#include "platform/windows/text/wide_text.h"

namespace prot {

namespace {

constexpr std::string_view single_value = "ein einzelner Wert";
constexpr std::string_view single_text = "ein Text";
constexpr std::string_view ten_texts = "ein Feld mit zehn Texten";
constexpr std::string_view array_of_rows = "ein Feld (Spalte, Zeile)";

/// What one statement of the server can select.
constexpr std::size_t most_columns = 4096;

struct ToValue {
    Value& value;
    template <class T>
    void operator()(T&& found) const {
        value = std::forward<T>(found);
    }
    void operator()(BSTR text) const { value = text_of(text); }
};

/// Fills one row after another; a text passes through one buffer.
class RowFiller {
public:
    explicit RowFiller(RowSet& rows) : rows_(rows) {}
    void add_row() {
        rows_.add_row();
        column_ = 0;
    }
    void next_column() { ++column_; }

    void operator()(std::monostate) const {}  // a new row is Null
    void operator()(bool truth) const { rows_.set(column_, std::int64_t{truth ? -1 : 0}); }
    void operator()(BSTR text) {
        rows_.set(column_, converter_.convert({text ? text : L"", SysStringLen(text)}));
    }
    template <class T>
    void operator()(const T& found) const {
        rows_.set(column_, found);
    }

private:
    RowSet& rows_;
    std::size_t column_ = 0;
    Utf8Converter converter_;
};

std::string answered(std::string_view member, std::string_view what) {
    return std::string(member).append(" lieferte ").append(what);
}

[[noreturn]] void fail_on_shape(std::string_view member, const std::string& shape,
                                std::string_view expected) {
    throw AutomationError(ErrorNumber::type_mismatch, answered(member, "ein Feld mit ")
                                                          .append(shape)
                                                          .append(", erwartet ist ")
                                                          .append(expected)
                                                          .append("."));
}

void require_dimensions(const SafeArrayView& array, unsigned count, std::string_view member,
                        std::string_view expected) {
    if (array.dimensions() == count) return;
    const char* const noun = array.dimensions() == 1 ? " Dimension" : " Dimensionen";
    fail_on_shape(member, std::to_string(array.dimensions()) + noun, expected);
}

Value value_of(const Element& element, const std::string& what) {
    Value value;
    if (!visit(element, ToValue{value})) fail_on_type(element.type, what, single_value);
    return value;
}

[[noreturn]] void fail_on_cell(const SafeArrayView& array, std::size_t column, std::size_t row, VARTYPE type,
                               std::string_view member) {
    const auto index = [&array](unsigned dimension, std::size_t offset) {
        return std::to_string(array.lower_bound(dimension) + static_cast<std::int64_t>(offset));
    };
    fail_on_type(
        type, answered(member, "an der Stelle (" + index(1, column) + ", " + index(2, row) + ") einen Wert"),
        single_value);
}

void fill(RowSet& rows, const SafeArrayView& array, std::string_view member) {
    const std::size_t columns = array.size(1), count = array.size(2);
    RowFiller filler(rows);
    std::size_t position = 0;
    for (std::size_t row = 0; row < count; ++row) {
        filler.add_row();
        for (std::size_t column = 0; column < columns; ++column, ++position, filler.next_column()) {
            const Element element = array.at(position);
            if (!visit(element, filler)) fail_on_cell(array, column, row, element.type, member);
        }
    }
}

}  // namespace

Value to_value(const VARIANT& variant, std::string_view member) {
    return value_of(element_of(variant), answered(member, "einen Wert"));
}

std::string to_text(const VARIANT& variant, std::string_view member) {
    const Element element = element_of(variant);
    if (is_null(element)) fail_on_type(element.type, answered(member, "einen Wert"), single_text);
    return to_text(value_of(element, answered(member, "einen Wert")));
}

RowSet to_row_set(const VARIANT& variant, std::string_view member) {
    if (is_null(element_of(variant))) return {};
    const SafeArrayView array(variant, member, array_of_rows);
    if (array.empty()) return {};
    require_dimensions(array, 2, member, array_of_rows);
    if (array.size(1) > most_columns)
        fail_on_shape(member, std::to_string(array.size(1)) + " Spalten", array_of_rows);
    RowSet rows(array.size(1));
    rows.set_first_row(array.lower_bound(2));
    fill(rows, array, member);
    return rows;
}

std::array<std::string, 10> to_ten_texts(const VARIANT& variant, std::string_view member) {
    std::array<std::string, 10> texts;
    const SafeArrayView array(variant, member, ten_texts);
    require_dimensions(array, 1, member, ten_texts);
    if (array.size(1) < texts.size())
        fail_on_shape(member, std::to_string(array.size(1)) + " Elementen", ten_texts);
    for (std::size_t i = 0; i < texts.size(); ++i)
        texts[i] = to_text(value_of(array.at(i), answered(member, "ein Element")));
    return texts;
}

}  // namespace prot
