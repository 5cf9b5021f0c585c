#include "apps/protcsv/checks/understood_text.h"

#include "apps/protcsv/sample/sample_database.h"
#include "platform/portable/sqlite/sqlite_database.h"
#include "sections/section_table.h"
#include "tests/unit/support/fakes.h"
#include "tests/unit/support/temporary_folder.h"

#include <gtest/gtest.h>

namespace prot::test {
namespace {

/// A text read against the sample database.
class Understood : public testing::Test {
protected:
    Understood() {
        write_sample_database(folder_.text("x.db"), {});
        database =
            open_sqlite_database(folder_.text("x.db"), SqliteAccess::read_only, SqliteReading::on_demand);
    }
    UnderstoodText of(std::int32_t section, std::string_view text) {
        return understand(text, section_table(), section, true, *database, host.environment);
    }
    /// The choices as "ITEM = READ AS (MEANING)", one a line.
    static std::string lines(const UnderstoodText& text) {
        std::string lines;
        for (const UnderstoodText::Choice& choice : text.choices())
            lines += choice.item + " = " + choice.read_as + " (" + choice.meaning + ")\n";
        return lines;
    }

    FakeHost host;
    std::unique_ptr<Database> database;

private:
    const TemporaryFolder folder_;
};

TEST_F(Understood, SaysInWordsWhatIsChosen) {
    const UnderstoodText text =
        of(6, "/sektion:6/autostart/mandant:M0123/vonkonto:1/wirtschaftsjahr:2025/vonkonto:5");
    EXPECT_EQ(text.filter_text, "Mandant: 123 Bäckerei Öztürk, von Konto: 5 bis Konto: 10001");
    EXPECT_EQ(lines(text),
              "mandant:M0123 = M123 (Mandant: 123 Bäckerei Öztürk)\n"
              "vonkonto:5 = 5 ()\n")
        << "the last of two, and no year that does not exist";
    EXPECT_TRUE(text.has_autostart());
    EXPECT_EQ(text.keys,
              (std::vector<std::string_view>{"wirtschaftsjahr:", "mandant:", "vonkonto", "biskonto"}));
}

TEST_F(Understood, NamesFrameworksAsTheFormShowsThem) {
    EXPECT_EQ(lines(of(10, "/autostart/stdkanz:K/auswertung:bilanz/auswertungsrahmen:bil/awraend:za")),
              "stdkanz:K = K (Kanzleirahmen)\n"
              "auswertung:bilanz = bilanz (Bilanz)\n"
              "auswertungsrahmen:bil = bil (Bilanz/GuV Kanzlei Weiß (Gültig ab 01/2025))\n"
              "awraend:za = za (Zeilenarten)\n");
}

TEST_F(Understood, HasNoFilterWhereAPersonWouldBeAsked) {
    for (const char* text :
         {"/autostart", "/mandant:123", "/autostart/mandant:999", "/autostart/mandant:123/dsgvo"})
        EXPECT_EQ(of(9, text).filter_text, std::nullopt) << text;
    EXPECT_FALSE(of(9, "/mandant:123").has_autostart());
    EXPECT_EQ(host.forms_shown, 0) << "and nobody is asked";
}

TEST_F(Understood, ShowsNoErrorAndKeepsWhatWasReadBeforeIt) {
    test::FakeDatabase broken;
    broken.failures.emplace("SELECT idDevisenWaehr, dcISOKennz FROM tDevisenWaehr ORDER BY dcISOKennz",
                            server_error("Tabelle fehlt"));
    const UnderstoodText text =
        understand("/autostart", section_table(), 15, false, broken, host.environment);
    EXPECT_EQ(text.filter_text, std::nullopt);
    EXPECT_TRUE(host.errors.empty());
    EXPECT_TRUE(host.boxes.empty());
    EXPECT_EQ(of(99, "/autostart").filter_text, std::nullopt) << "no such section";
}

}  // namespace
}  // namespace prot::test
