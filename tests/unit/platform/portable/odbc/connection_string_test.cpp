#include "platform/portable/odbc/connection_string.h"

#include <gmock/gmock.h>

#include <stdexcept>

namespace prot {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string value(const ConnectionString& connection, std::string_view keyword) {
    const std::string* const found = connection.find(keyword);
    return found == nullptr ? "fehlt" : *found;
}

std::string refusal(std::string_view text) {
    try {
        const ConnectionString read(text);
    } catch (const std::invalid_argument& error) {
        return error.what();
    }
    return "angenommen";
}

TEST(ConnectionString, IsReadIntoKeywordsAndValues) {
    const ConnectionString connection(
        "Driver={ODBC Driver 18 for SQL Server};Server=tcp:sql01,1433; database = Firma "
        ";;Trusted_Connection=Yes");
    EXPECT_EQ(value(connection, "DRIVER"), "ODBC Driver 18 for SQL Server");
    EXPECT_EQ(value(connection, "server"), "tcp:sql01,1433");
    EXPECT_EQ(value(connection, "Database"), "Firma") << "blanks around a name or a value do not count";
    EXPECT_EQ(value(connection, "Trusted_Connection"), "Yes");
    EXPECT_EQ(value(connection, "UID"), "fehlt");
}

TEST(ConnectionString, TakesAnythingInBraces) {
    EXPECT_EQ(value(ConnectionString("PWD={a;b}}c=d {e}}}"), "PWD"), "a;b}c=d {e}");
    EXPECT_EQ(value(ConnectionString("PWD={ x } ;UID=u"), "PWD"), " x ");
    EXPECT_EQ(value(ConnectionString("PWD={ x } ;UID=u"), "UID"), "u");
    EXPECT_EQ(value(ConnectionString("PWD={};UID=u"), "PWD"), "");
    EXPECT_EQ(value(ConnectionString("PWD=a=b{c;UID=u"), "PWD"), "a=b{c") << "braces inside are ordinary";
    EXPECT_EQ(value(ConnectionString("UID=Müller;PWD="), "UID"), "Müller");
}

TEST(ConnectionString, CountsTheFirstOfTwoValues) {
    EXPECT_EQ(ConnectionString("Server=a;SERVER=b").text(), "Server=a;");
}

TEST(ConnectionString, RefusesWhatIsNone) {
    EXPECT_EQ(refusal(""), "Die Verbindungszeichenfolge ist leer.");
    EXPECT_EQ(refusal(" ; "), "Die Verbindungszeichenfolge ist leer.");
    EXPECT_EQ(refusal("Server=a;geheim"),
              "In der Verbindungszeichenfolge steht etwas ohne Gleichheitszeichen.");
    EXPECT_EQ(refusal("geheim;Server=a"),
              "In der Verbindungszeichenfolge steht etwas ohne Gleichheitszeichen.");
    EXPECT_EQ(refusal("=geheim"), "In der Verbindungszeichenfolge steht ein Wert ohne Namen.");
    EXPECT_EQ(refusal("PWD={geheim"), "In der Verbindungszeichenfolge fehlt eine schließende Klammer }.");
    EXPECT_EQ(refusal("PWD={geheim}}"), "In der Verbindungszeichenfolge fehlt eine schließende Klammer }.");
    EXPECT_EQ(refusal("PWD={geheim}x;UID=u"),
              "In der Verbindungszeichenfolge steht hinter einer Klammer } kein Semikolon.");
}

TEST(ConnectionString, IsWrittenSoThatItIsReadBackTheSame) {
    ConnectionString connection("Driver=SQLite3");
    for (const char* const odd : {"a;b", "{x}", "}", " x", "x ", "a=b", "(x)", "p@ss!*?,[]"})
        connection.add("K" + std::to_string(connection.text().size()), odd);
    EXPECT_EQ(ConnectionString(connection.text()).text(), connection.text());
    EXPECT_EQ(ConnectionString("A={}}};B=c").text(), "A={}}};B=c;");
}

TEST(ConnectionString, AddsOnlyWhatIsNotThereAndRemovesWhatIs) {
    ConnectionString connection("Encrypt=no");
    connection.add("ENCRYPT", "yes");
    connection.add("Server", "a");
    EXPECT_EQ(connection.text(), "Encrypt=no;Server=a;");
    EXPECT_TRUE(connection.remove("encrypt"));
    EXPECT_FALSE(connection.remove("encrypt"));
    EXPECT_EQ(connection.text(), "Server=a;");
}

TEST(ConnectionString, ShowsNoSecret) {
    const ConnectionString connection(
        "Server=a;UID=u;Pwd={ge;heim};password=zwei;AccessToken=drei;ClientSecret=");
    EXPECT_EQ(connection.without_secrets(),
              "Server=a;UID=u;Pwd=***;password=***;AccessToken=***;ClientSecret=***");
    EXPECT_THAT(connection.secrets(), ElementsAre("ge;heim", "zwei", "drei")) << "an empty one is none";
    EXPECT_THAT(ConnectionString("Server=a").secrets(), IsEmpty());
}

TEST(ConnectionString, IsMaskedInWhatOthersRepeatOfIt) {
    EXPECT_EQ(masked("Login failed: u/geheim, geheimgeheim", {"geheim"}), "Login failed: u/***, ******");
    EXPECT_EQ(masked("nichts davon", {"geheim"}), "nichts davon");
    EXPECT_EQ(masked("**", {"*"}), "******") << "a secret of stars comes to an end";
}

}  // namespace
}  // namespace prot
