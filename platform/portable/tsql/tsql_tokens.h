#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/portable/tsql/tsql_keywords.h"

namespace prot {

/// One token of a T-SQL text. `text` is its slice of that text, delimiters included.
struct Token {
    enum class Kind : std::uint8_t {
        name,         ///< plain or #temporary name, or a keyword
        quoted_name,  ///< [name] or "name", a delimiter inside doubled
        string,       ///< 'text' or N'text', an apostrophe inside doubled
        number,       ///< digits, decimal point, exponent; without sign
        symbol,       ///< parenthesis, separator or operator
        end           ///< behind the last token; empty
    };

    Kind kind = Kind::end;
    Keyword keyword = Keyword::none;  ///< of a plain name
    std::string_view text;
    std::size_t offset = 0;   ///< bytes from the start of the text
    std::size_t closing = 0;  ///< of "(": index of its ")"
};

/// Takes a T-SQL text apart; blanks and comments (-- to the end of the line, /* */ nested) are left out, the
/// last token is of kind end. Refuses (see refuse_statement) texts and names without an end, comments without
/// an end, parentheses without a partner, and characters that T-SQL does not know or that stand for
/// variables.
std::vector<Token> tokenize(std::string_view text);

/// The name that a token of kind name or quoted_name stands for.
std::string name_of(const Token& token);

/// The text that a literal 'text' or N'text' stands for.
std::string string_of(std::string_view literal);

}  // namespace prot
