#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace prot {

/// A connection string of ODBC, "Driver={…};Server=…": its keywords with their values, in their order. A
/// value in braces may hold anything, a closing brace twice. Of a keyword that stands there twice the first
/// counts. Source: ODBC, SQLDriverConnect, and the C data type of attribute values.
class ConnectionString {
public:
    ConnectionString() = default;

    /// Raises std::invalid_argument with one German line, which repeats no value, where `text` is none.
    explicit ConnectionString(std::string_view text);

    /// The value of a keyword, letter case ignored; null: it does not stand there.
    const std::string* find(std::string_view keyword) const;

    /// Appends it, but where the keyword stands there already.
    void add(std::string_view keyword, std::string_view value);
    /// Takes it away; false: it was not there.
    bool remove(std::string_view keyword);

    /// As a driver manager takes it.
    std::string text() const;

    /// For people and logs: as text(), but for the value of each secret (PWD, Password and the like), which
    /// is "***".
    std::string without_secrets() const;

    /// The values of secrets that are not empty.
    std::vector<std::string> secrets() const;

private:
    struct Item {
        std::string keyword;
        std::string value;
    };

    std::vector<Item> items_;
};

/// `text` with each of the secrets masked as "***", as a driver may repeat them.
std::string masked(std::string text, const std::vector<std::string>& secrets);

}  // namespace prot
