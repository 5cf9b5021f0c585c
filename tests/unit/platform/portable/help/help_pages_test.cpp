#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <optional>
#include <pugixml.hpp>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include "platform/automation/utf8.h"
#include "platform/portable/help/help_topics.h"
#include "platform/portable/xml/document_reader.h"
#include "tests/unit/support/temporary_folder.h"

/// The help that is delivered, docs/hilfe.
namespace prot {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view map = "mivra_allgemein.xml";
constexpr std::string_view prefix = "HID_MIVRA_ALLGEMEIN_PROTOKOLLIERUNG_";
constexpr std::string_view document_type = "<!DOCTYPE html>\n";

fs::path help_folder() { return fs::path(PROT_SOURCE_DIR) / "docs" / "hilfe"; }

std::vector<fs::path> files(std::string_view extension) {
    std::vector<fs::path> found;
    for (const auto& entry : fs::directory_iterator(help_folder()))
        if (entry.path().extension() == extension) found.push_back(entry.path());
    return found;
}

pugi::xml_document load(const fs::path& file) {
    pugi::xml_document document;
    EXPECT_TRUE(document.load_file(file.c_str())) << file;
    return document;
}

bool is_xml(const std::string& text) { return create_document_reader()->load(text); }

std::vector<std::string> attributes(const fs::path& file, const char* query) {
    const pugi::xml_document document = load(file);
    std::vector<std::string> values;
    for (const pugi::xpath_node& node : document.select_nodes(query))
        values.emplace_back(node.attribute().value());
    return values;
}

TEST(HelpPages, EachTopicHasAPageWithTitleAndText) {
    const struct {
        const char *topic, *heading, *says;
    } rows[] = {
        {"INDEX", "Stammdatenprotokolle exportieren", "protcsv sections"},
        {"AUSWERTUNG_STAMMDATENPROTOKOLLIERUNG", "Auswertung der Stammdatenprotokollierung", "gibt es nicht"},
        {"DEVISENKURSE", "Protokollausgabe Devisenkurse", "von ISO Währungscode: "},
        {"KUNDEN", "Protokollausgabe Kunden", "Kunden-Nr: zu welchem Kunden"},
        {"LIEFERANTEN", "Protokollausgabe Lieferanten", "Lieferanten-Nr: zu welchem Lieferanten"},
        {"OFFENE_POSTEN", "Protokollausgabe Offene Posten", "Wirtschaftsjahr: "},
        {"AUSWERTUNGSRAHMEN2FZUORDNUNGEN", "Protokollausgabe Auswertungsrahmen und Zuordnungen",
         "Auswertungsdichte: "},
        {"KONTENRAHMEN", "Kontenrahmen", "keinen Export"},
        {"PERIODENABSCHLUSS", "Periodenabschluss", "keinen Export"},
        {"MANDANTEN2D_KANZLEISTAMM", "Mandanten und Kanzleistamm", "keinen Export"},
    };
    const HelpTopics topics(help_folder());
    for (const auto& row : rows) {
        const std::string id = std::string(prefix) + row.topic;
        const std::string text = topics.text(map, id).value_or("");
        EXPECT_TRUE(text.starts_with(std::string(row.heading) + "\n==")) << id << '\n' << text;
        // Lines may break between any two words.
        const std::string line = std::regex_replace(text, std::regex("\\s+"), " ");
        EXPECT_NE(line.find(row.says), std::string::npos) << id << '\n' << text;
        EXPECT_GT(text.size(), 500u) << id;
        const std::optional<fs::path> page = topics.page(map, id);
        ASSERT_TRUE(page) << id;
        EXPECT_STREQ(load(*page).child("html").child("head").child_value("title"), row.heading) << id;
    }
    EXPECT_EQ(attributes(help_folder() / map, "/hilfe/thema/@id").size(), std::size(rows));
}

TEST(HelpPages, EachTopicAndEachPageStandsInTheMapOnce) {
    const fs::path file = help_folder() / map;
    const std::vector<std::string> ids = attributes(file, "/hilfe/thema/@id");
    EXPECT_EQ(std::set<std::string>(ids.begin(), ids.end()).size(), ids.size());
    std::vector<std::string> named = attributes(file, "/hilfe/thema/@seite"), present;
    for (const fs::path& page : files(".html")) present.push_back(page.filename().string());
    std::ranges::sort(named);
    std::ranges::sort(present);
    EXPECT_EQ(named, present);
}

TEST(HelpPages, EachPageIsWellFormedXmlInUtf8) {
    std::vector<fs::path> all = files(".html");
    EXPECT_GE(all.size(), 10u);
    for (const fs::path& page : all) {
        const std::string content = content_of(page);
        EXPECT_TRUE(is_valid_utf8(content)) << page;
        ASSERT_TRUE(content.starts_with(document_type)) << page;
        EXPECT_TRUE(is_xml(content.substr(document_type.size()))) << page;
        const pugi::xml_document document = load(page);
        EXPECT_STREQ(document.select_node("/html/head/meta/@charset").attribute().value(), "utf-8") << page;
        EXPECT_STREQ(document.child("html").attribute("lang").value(), "de") << page;
    }
    EXPECT_TRUE(is_xml(content_of(help_folder() / map)));
}

TEST(HelpPages, EachLinkLeadsToAFileOfTheHelp) {
    std::size_t links = 0;
    for (const fs::path& page : files(".html"))
        for (const std::string& target : attributes(page, "//@href|//@src")) {
            ++links;
            EXPECT_EQ(target.find_first_of("/:"), std::string::npos) << page << ' ' << target;
            EXPECT_TRUE(fs::is_regular_file(help_folder() / target)) << page << ' ' << target;
        }
    EXPECT_GT(links, files(".html").size());
}

TEST(HelpPages, KeepToTheElementsThatBecomePlainText) {
    const std::set<std::string> known = {"h1", "h2", "p",  "ul", "ol",   "li", "table",
                                         "tr", "th", "td", "b",  "code", "a"};
    for (const fs::path& page : files(".html")) {
        const pugi::xml_document document = load(page);
        for (const pugi::xpath_node& node : document.select_nodes("/html/body//*"))
            EXPECT_TRUE(known.contains(node.node().name())) << page << ' ' << node.node().name();
        for (const pugi::xpath_node& node : document.select_nodes("/html/head/*"))
            EXPECT_STRNE(node.node().name(), "script") << page;
    }
}

/// A letter that was written or read in another encoding, or spelled without its dots.
TEST(HelpPages, WriteGermanWithItsUmlauts) {
    const std::regex wrong("Ã|Â|�|fuer|ueber|Aender|aender|geloescht|Waehrung|groess|Schluessel|koennen");
    for (const fs::path& page : files(".html")) {
        const std::string content = content_of(page);
        std::smatch match;
        EXPECT_FALSE(std::regex_search(content, match, wrong)) << page << ' ' << match.str();
        EXPECT_NE(content.find("ü"), std::string::npos) << page;
    }
}

}  // namespace
}  // namespace prot
