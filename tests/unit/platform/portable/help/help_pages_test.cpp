#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <optional>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include "platform/automation/utf8.h"
#include "platform/portable/help/help_topics.h"
#include "platform/portable/xml/xml_tree.h"
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

XmlNode load(const fs::path& file) {
    const std::optional<XmlNode> root = read_xml_tree(file);
    EXPECT_TRUE(root) << file;
    return root.value_or(XmlNode());
}

/// The elements within `node`, at any depth, in document order.
std::vector<const XmlNode*> elements_in(const XmlNode& node) {
    std::vector<const XmlNode*> found;
    for (const XmlNode& child : node.children) {
        if (!child.is_element()) continue;
        found.push_back(&child);
        std::ranges::copy(elements_in(child), std::back_inserter(found));
    }
    return found;
}

/// The elements of that name within `node`.
std::vector<const XmlNode*> elements_in(const XmlNode& node, std::string_view name) {
    std::vector<const XmlNode*> found = elements_in(node);
    std::erase_if(found, [&](const XmlNode* element) { return element->name != name; });
    return found;
}

/// The attributes of those names within `node`, at any depth, in document order.
std::vector<std::string> attributes_in(const XmlNode& node, const std::set<std::string>& names) {
    std::vector<std::string> values;
    for (const XmlNode* element : elements_in(node))
        for (const auto& [name, value] : element->attributes)
            if (names.contains(name)) values.push_back(value);
    return values;
}

std::vector<std::string> map_attributes(const char* name) {
    const XmlNode topics = load(help_folder() / map);
    EXPECT_EQ(topics.name, "hilfe");
    EXPECT_EQ(elements_in(topics, "thema").size(), elements_in(topics).size());
    return attributes_in(topics, {name});
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
        const XmlNode html = load(*page);
        const auto titles = elements_in(html, "title");
        ASSERT_EQ(titles.size(), 1u) << id;
        EXPECT_EQ(titles[0]->children.at(0).text, row.heading) << id;
    }
    EXPECT_EQ(map_attributes("id").size(), std::size(rows));
}

TEST(HelpPages, EachTopicAndEachPageStandsInTheMapOnce) {
    const std::vector<std::string> ids = map_attributes("id");
    EXPECT_EQ(std::set<std::string>(ids.begin(), ids.end()).size(), ids.size());
    std::vector<std::string> named = map_attributes("seite"), present;
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
        const XmlNode html = load(page);
        EXPECT_EQ(attributes_in(html, {"charset"}), std::vector<std::string>{"utf-8"}) << page;
        EXPECT_EQ(html.attribute("lang"), "de") << page;
    }
}

TEST(HelpPages, EachLinkLeadsToAFileOfTheHelp) {
    std::size_t links = 0;
    for (const fs::path& page : files(".html"))
        for (const std::string& target : attributes_in(load(page), {"href", "src"})) {
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
        const XmlNode html = load(page);
        const XmlNode* const body = html.child("body");
        ASSERT_NE(body, nullptr) << page;
        for (const XmlNode* element : elements_in(*body))
            EXPECT_TRUE(known.contains(element->name)) << page << ' ' << element->name;
        EXPECT_TRUE(elements_in(html, "script").empty()) << page;
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
