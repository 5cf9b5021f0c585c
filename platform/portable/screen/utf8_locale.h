#pragma once

#include <optional>
#include <string>

namespace prot {

/// The locale that makes the C library and the screen library take text for UTF-8. The environment's own
/// where that is one; C.UTF-8 where the environment says nothing about characters (C, POSIX, nothing at all)
/// or names a UTF-8 locale that is not installed. Nothing when the terminal is meant for another encoding.
std::optional<std::string> utf8_locale();

/// While it lives, LC_CTYPE is `name`; numbers and all else stay as they are. Also undoes what a library made
/// of the locale meanwhile.
class LocaleOfCharacters {
public:
    explicit LocaleOfCharacters(std::string name);
    ~LocaleOfCharacters();
    LocaleOfCharacters(const LocaleOfCharacters&) = delete;
    LocaleOfCharacters& operator=(const LocaleOfCharacters&) = delete;

    /// Runs `start`, which may set the locale from the environment: it finds only this locale there, and what
    /// it set is undone.
    template <typename Start>
    auto within_environment(Start start) {
        enter_environment();
        const auto result = start();
        leave_environment();
        return result;
    }

private:
    void enter_environment();
    void leave_environment();
    void apply() const;

    std::string name_;
    std::string earlier_;
    std::optional<std::string> variable_;
};

}  // namespace prot
