#include "platform/portable/odbc/connection_string.h"

#include <algorithm>
#include <stdexcept>

#include "platform/automation/letter_case.h"
#include "platform/automation/text_parts.h"

namespace prot {

namespace {

constexpr std::string_view mask = "***";

/// What nobody but the server may read. Sources: keywords of SQL Server's, FreeTDS' and SQLite's drivers.
constexpr std::string_view secret_keywords[] = {"PWD",         "PASSWORD",     "NEWPWD",
                                                "ACCESSTOKEN", "CLIENTSECRET", "KEYSTORESECRET"};

bool is_secret(std::string_view keyword) {
    return std::ranges::any_of(secret_keywords,
                               [keyword](std::string_view secret) { return upper_equals(keyword, secret); });
}

auto is_named(std::string_view keyword) {
    return [name = to_upper(keyword)](const auto& item) { return upper_equals(item.keyword, name); };
}

/// Takes the value that begins at `at` and moves behind the semicolon that ends it.
std::string take_value(std::string_view text, std::size_t& at) {
    while (at < text.size() && text[at] == ' ') ++at;
    std::string value;
    if (at < text.size() && text[at] == '{') {
        for (++at;; ++at) {
            if (at >= text.size())
                throw std::invalid_argument(
                    "In der Verbindungszeichenfolge fehlt eine schließende Klammer }.");
            if (text[at] == '}' && (at + 1 >= text.size() || text[at + 1] != '}')) break;
            if (text[at] == '}') ++at;
            value += text[at];
        }
        const std::size_t behind = text.find_first_not_of(' ', ++at);
        at = std::min(behind, text.size());
        if (at < text.size() && text[at] != ';')
            throw std::invalid_argument(
                "In der Verbindungszeichenfolge steht hinter einer Klammer } kein Semikolon.");
        ++at;
        return value;
    }
    const std::size_t end = std::min(text.find(';', at), text.size());
    value = trim_blanks(text.substr(at, end - at));
    at = end + 1;
    return value;
}

/// Source: ODBC, SQLDriverConnect: these characters must stand in braces.
bool needs_braces(std::string_view value) {
    return value.find_first_of("[]{}(),;?*=!@") != std::string_view::npos ||
           (!value.empty() && (value.front() == ' ' || value.back() == ' '));
}

std::string quoted_value(std::string_view value) {
    if (!needs_braces(value)) return std::string(value);
    std::string result = "{";
    append_doubled(result, value, '}');
    return result + '}';
}

}  // namespace

ConnectionString::ConnectionString(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = text.find_first_of("=;", at);
        const std::string_view keyword = trim_blanks(text.substr(at, std::min(end, text.size()) - at));
        if (end == std::string_view::npos || text[end] == ';') {
            if (!keyword.empty())
                throw std::invalid_argument(
                    "In der Verbindungszeichenfolge steht etwas ohne Gleichheitszeichen.");
            at = std::min(end, text.size() - 1) + 1;
            continue;
        }
        if (keyword.empty())
            throw std::invalid_argument("In der Verbindungszeichenfolge steht ein Wert ohne Namen.");
        at = end + 1;
        add(keyword, take_value(text, at));
    }
    if (items_.empty()) throw std::invalid_argument("Die Verbindungszeichenfolge ist leer.");
}

const std::string* ConnectionString::find(std::string_view keyword) const {
    const auto found = std::ranges::find_if(items_, is_named(keyword));
    return found == items_.end() ? nullptr : &found->value;
}

void ConnectionString::add(std::string_view keyword, std::string_view value) {
    if (find(keyword) == nullptr) items_.push_back({std::string(keyword), std::string(value)});
}

bool ConnectionString::remove(std::string_view keyword) {
    return std::erase_if(items_, is_named(keyword)) != 0;
}

std::string ConnectionString::text() const {
    std::string result;
    for (const Item& item : items_) result += item.keyword + '=' + quoted_value(item.value) + ';';
    return result;
}

std::string ConnectionString::without_secrets() const {
    std::string result;
    for (const Item& item : items_) {
        if (!result.empty()) result += ';';
        result += item.keyword + '=';
        result += is_secret(item.keyword) ? std::string(mask) : quoted_value(item.value);
    }
    return result;
}

std::vector<std::string> ConnectionString::secrets() const {
    std::vector<std::string> result;
    for (const Item& item : items_)
        if (is_secret(item.keyword) && !item.value.empty()) result.push_back(item.value);
    return result;
}

std::string masked(std::string text, const std::vector<std::string>& secrets) {
    for (const std::string& secret : secrets)
        for (std::size_t at = 0; (at = text.find(secret, at)) != std::string::npos; at += mask.size())
            text.replace(at, secret.size(), mask);
    return text;
}

}  // namespace prot
