#include "platform/portable/tsql/tsql_refusal.h"

#include <string>

#include "platform/automation/error.h"
#include "platform/automation/utf8.h"

namespace prot {

namespace {

constexpr std::size_t longest_quotation = 40;  // bytes

std::string near_text(std::string_view statement, std::size_t offset, std::size_t size) {
    if (size == 0) return "am Ende";
    const std::string_view quoted = whole_characters(statement.substr(offset, size), longest_quotation);
    return "bei „" + std::string(quoted) + (quoted.size() == size ? "“" : "…“");
}

}  // namespace

TextPlace place_of(std::string_view text, std::size_t offset) {
    TextPlace place;
    for (const char byte : text.substr(0, offset)) {
        if (byte == '\n') {
            ++place.line;
            place.column = 1;
        } else if (!continues_character(byte)) {
            ++place.column;
        }
    }
    return place;
}

void refuse_statement(std::string_view statement, std::size_t offset, std::size_t size,
                      std::string_view reason) {
    const TextPlace place = place_of(statement, offset);
    std::string description = "Die Anweisung wird nicht verstanden (Zeile " + std::to_string(place.line) +
                              ", Spalte " + std::to_string(place.column) + ", " +
                              near_text(statement, offset, size) + "): ";
    description += reason;
    description += ". Anweisung: ";
    description += statement;
    throw AutomationError(statement_refused, "SQLite", description);
}

}  // namespace prot
