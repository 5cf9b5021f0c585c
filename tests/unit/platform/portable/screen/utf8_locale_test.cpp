#include "platform/portable/screen/utf8_locale.h"

#include <clocale>
#include <cstdlib>
#include <string>

#include <gtest/gtest.h>

namespace prot {
namespace {

void set_environment(const char* all, const char* characters, const char* language) {
    const std::pair<const char*, const char*> variables[] = {
        {"LC_ALL", all}, {"LC_CTYPE", characters}, {"LANG", language}};
    for (const auto& [name, value] : variables) value ? setenv(name, value, 1) : unsetenv(name);
}

TEST(Utf8Locale, IsTheEnvironmentsOwnWhereverThatIsOne) {
    using Name = std::optional<std::string>;
    const struct {
        const char *all, *characters, *language;
        Name expected;
        const char* why;
    } rows[] = {
        {nullptr, nullptr, nullptr, "C.UTF-8", "nothing is named"},
        {"", nullptr, "", "C.UTF-8", "empty is nothing"},
        {"C", nullptr, "xx_XX.ISO-8859-1", "C.UTF-8", "C says nothing about characters"},
        {nullptr, nullptr, "POSIX", "C.UTF-8", "neither does POSIX"},
        {nullptr, "C.utf8", "C", "C.utf8", "the environment's own"},
        {nullptr, nullptr, "xx_XX.UTF-8", "C.UTF-8", "UTF-8, though that locale is not installed"},
        {nullptr, nullptr, "xx_XX.ISO-8859-1", std::nullopt, "another encoding"},
    };
    for (const auto& row : rows) {
        set_environment(row.all, row.characters, row.language);
        EXPECT_EQ(utf8_locale(), row.expected) << row.why;
    }
}

TEST(LocaleOfCharacters, UndoesWhatALibraryMakesOfTheLocale) {
    set_environment("C", nullptr, nullptr);
    const std::string earlier = std::setlocale(LC_ALL, nullptr);
    {
        LocaleOfCharacters locale("C.UTF-8");
        const std::string within =
            locale.within_environment([] { return std::string(std::setlocale(LC_ALL, "")); });
        EXPECT_EQ(within, "C.UTF-8");
        EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C") << "numbers keep their decimal point";
        EXPECT_STREQ(std::setlocale(LC_CTYPE, nullptr), "C.UTF-8");
        EXPECT_STREQ(std::getenv("LC_ALL"), "C");
    }
    EXPECT_EQ(std::setlocale(LC_ALL, nullptr), earlier);
}

}  // namespace
}  // namespace prot
