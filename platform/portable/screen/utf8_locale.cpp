#include "platform/portable/screen/utf8_locale.h"

#include <clocale>
#include <cstdlib>

#include <langinfo.h>

#include "platform/automation/letter_case.h"

namespace prot {

namespace {

constexpr const char* strongest_variable = "LC_ALL";
constexpr const char* portable_locale = "C.UTF-8";

/// What the environment calls the locale of characters; empty: nothing.
std::string environment_name() {
    for (const char* variable : {strongest_variable, "LC_CTYPE", "LANG"})
        if (const char* value = std::getenv(variable); value != nullptr && *value != '\0') return value;
    return {};
}

std::string current(int category) { return std::setlocale(category, nullptr); }

bool makes_utf8(const char* name) {
    return std::setlocale(LC_CTYPE, name) != nullptr && std::string(nl_langinfo(CODESET)) == "UTF-8";
}

bool says_nothing(const std::string& name) { return name.empty() || name == "C" || name == "POSIX"; }

bool names_utf8(const std::string& name) {
    const std::string lower = to_lower(std::string_view(name));
    return lower.find("utf-8") != std::string::npos || lower.find("utf8") != std::string::npos;
}

}  // namespace

std::optional<std::string> utf8_locale() {
    const std::string earlier = current(LC_CTYPE);
    const std::string name = environment_name();
    std::optional<std::string> found;
    if (!name.empty() && makes_utf8(name.c_str()))
        found = name;
    else if ((says_nothing(name) || names_utf8(name)) && makes_utf8(portable_locale))
        found = portable_locale;
    std::setlocale(LC_CTYPE, earlier.c_str());
    return found;
}

LocaleOfCharacters::LocaleOfCharacters(std::string name) : name_(std::move(name)), earlier_(current(LC_ALL)) {
    apply();
}

LocaleOfCharacters::~LocaleOfCharacters() { std::setlocale(LC_ALL, earlier_.c_str()); }

void LocaleOfCharacters::apply() const {
    std::setlocale(LC_ALL, earlier_.c_str());
    std::setlocale(LC_CTYPE, name_.c_str());
}

void LocaleOfCharacters::enter_environment() {
    if (const char* value = std::getenv(strongest_variable)) variable_ = value;
    setenv(strongest_variable, name_.c_str(), 1);
}

void LocaleOfCharacters::leave_environment() {
    if (variable_)
        setenv(strongest_variable, variable_->c_str(), 1);
    else
        unsetenv(strongest_variable);
    variable_.reset();
    apply();
}

}  // namespace prot
