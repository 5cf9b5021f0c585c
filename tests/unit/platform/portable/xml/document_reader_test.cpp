#include "platform/portable/xml/document_reader.h"

#include <gtest/gtest.h>

#include <string>

namespace prot {
namespace {

constexpr ColumnPart name = ColumnPart::name, old_value = ColumnPart::old_value,
                     new_value = ColumnPart::new_value;

class DocumentReader : public testing::Test {
protected:
    std::string first_old_value_of(const std::string& content) {
        EXPECT_TRUE(xml->load("<Cols><Col Name=\"a\"><OldValue>" + content + "</OldValue></Col></Cols>"))
            << content;
        return std::string(xml->part(0, old_value));
    }

    std::unique_ptr<ChangeDocumentReader> xml = create_document_reader();
};

TEST_F(DocumentReader, ReadsNamesAndValuesOfTheColumnsInDocumentOrder) {
    ASSERT_TRUE(xml->load(
        "<Cols><Col Name=\"DEV_KURS\"><OldValue>1,5</OldValue><NewValue>1,6</NewValue></Col>"
        "<Col Name=\"DEV_NAME\"><OldValue>US-Dollar</OldValue><NewValue>Dollar</NewValue></Col></Cols>"));
    EXPECT_EQ(xml->columns(), 2);
    EXPECT_EQ(xml->part(0, name), "DEV_KURS");
    EXPECT_EQ(xml->part(0, old_value), "1,5");
    EXPECT_EQ(xml->part(0, new_value), "1,6");
    EXPECT_EQ(xml->part(1, name), "DEV_NAME");
    EXPECT_EQ(xml->part(1, old_value), "US-Dollar");
    EXPECT_EQ(xml->part(1, new_value), "Dollar");
}

TEST_F(DocumentReader, HasNothingOutsideItsColumns) {
    ASSERT_TRUE(xml->load("<Cols><Col Name=\"a\"><OldValue>x</OldValue></Col></Cols>"));
    for (const std::int32_t index : {-1, 1, 2, 2147483647, -2147483647 - 1})
        for (const ColumnPart part : {name, old_value, new_value})
            EXPECT_EQ(xml->part(index, part), "") << index;
    EXPECT_EQ(xml->part(0, new_value), "") << "the column has no such element";
    EXPECT_EQ(xml->old_value_of("A"), "") << "names are told apart by letter case";
}

TEST_F(DocumentReader, HasNothingBeforeTheFirstDocumentAndAfterARefusedOne) {
    EXPECT_EQ(xml->columns(), 0);
    EXPECT_EQ(xml->part(0, old_value), "");
    for (const char* refused : {"", " ", "<Cols>", "<Cols><Col Name=\"b\"></Cols></Col>", "<Cols/><Cols/>"}) {
        ASSERT_TRUE(xml->load("<Cols><Col Name=\"a\"><OldValue>x</OldValue></Col></Cols>"));
        EXPECT_FALSE(xml->load(refused)) << refused;
        EXPECT_EQ(xml->columns(), 0) << refused;
        EXPECT_EQ(xml->part(0, old_value), "") << refused;
        EXPECT_EQ(xml->old_value_of("a"), "") << refused;
    }
}

TEST_F(DocumentReader, RefusesEndTagsThatDoNotMatch) {
    for (const char* refused :
         {"<a></b>", "<a></ab>", "<ab></a>", "<a><b></a></b>", "<a></A>", "<a>x</b>", "<a><b>x</c></a>",
          "<ab></a >", "<a></a></a>", "<a></a", "<Cols><Col></Col></Col></Cols>", "<abc></a></bcd>",
          "<abc>x</x></y></abc>"}) {
        EXPECT_FALSE(xml->load(refused)) << refused;
    }
    EXPECT_TRUE(xml->load("<a><b>x</b ><b></b\n></a\t>"));
}

TEST_F(DocumentReader, RefusesWhatIsNotWellFormed) {
    for (const char* refused :
         {"<!DOCTYPE Cols><Cols/>", "<Cols>&unknown;</Cols>", "<Cols/>text", "<Cols>\xFF</Cols>"}) {
        EXPECT_FALSE(xml->load(refused)) << refused;
    }
}

// A check that took the last element's name length for that of the end tag once ran past the root's end here.
TEST_F(DocumentReader, RefusesTextAfterTheRootThatEndsLikeATag) {
    EXPECT_FALSE(xml->load("<Cols><NewValue/></Cols>\n]]><!--e-->"));
    EXPECT_FALSE(xml->load("<Cols><NewValue></NewValue></Cols>xxx>"));
}

TEST_F(DocumentReader, LoadsNoEntityBomb) {
    EXPECT_FALSE(xml->load(
        "<!DOCTYPE a [<!ENTITY b 'xxxxxxxxxx'><!ENTITY c '&b;&b;&b;&b;'><!ENTITY d '&c;&c;&c;&c;'>]>"
        "<Cols><Col Name=\"a\"><OldValue>&d;</OldValue></Col></Cols>"));
}

TEST_F(DocumentReader, TakesTheFirstColsAnywhereInTheDocument) {
    ASSERT_TRUE(
        xml->load("<r><x><y/></x><z><Cols><Col Name=\"a\"/></Cols></z><Cols><Col/><Col/></Cols></r>"));
    EXPECT_EQ(xml->columns(), 1);
    EXPECT_EQ(xml->part(0, name), "a");
}

TEST_F(DocumentReader, TakesTheOuterOfTwoNestedCols) {
    ASSERT_TRUE(xml->load("<Cols><Cols><Col Name=\"inner\"/></Cols><Col Name=\"outer\"/></Cols>"));
    EXPECT_EQ(xml->columns(), 1);
    EXPECT_EQ(xml->part(0, name), "outer");
}

TEST_F(DocumentReader, LoadsADocumentWithoutColumns) {
    EXPECT_TRUE(xml->load("<Rows><Col Name=\"a\"/></Rows>"));
    EXPECT_EQ(xml->columns(), 0);
    EXPECT_TRUE(xml->load("<Cols/>"));
    EXPECT_EQ(xml->columns(), 0);
}

TEST_F(DocumentReader, ComparesNamesAsTheyAreWritten) {
    ASSERT_TRUE(xml->load(
        "<p:Cols xmlns:p='u'><p:Col Name='a'/><Cols><col Name='b'/><Col name='c'/></Cols></p:Cols>"));
    EXPECT_EQ(xml->columns(), 1);
    EXPECT_EQ(xml->part(0, name), "");
}

TEST_F(DocumentReader, CountsOnlyColElements) {
    ASSERT_TRUE(
        xml->load("<Cols> text <Row/><Col Name='a'/><!--<Col/>--><![CDATA[<Col/>]]><Col Name='b'/></Cols>"));
    EXPECT_EQ(xml->columns(), 2);
    EXPECT_EQ(xml->part(1, name), "b");
}

TEST_F(DocumentReader, FindsAValueWhereverItStandsInItsColumn) {
    ASSERT_TRUE(
        xml->load("<Cols><Col Name='a'><NewValue>n</NewValue> <x><OldValue>no</OldValue></x>"
                  "<OldValue>first</OldValue><OldValue>second</OldValue></Col></Cols>"));
    EXPECT_EQ(xml->part(0, old_value), "first");
    EXPECT_EQ(xml->part(0, new_value), "n");
}

TEST_F(DocumentReader, ReadsTheOldValueOfTheFirstColumnOfAName) {
    ASSERT_TRUE(xml->load(
        "<Cols><Col><OldValue>none</OldValue></Col><Col Name='A'><OldValue>big</OldValue></Col>"
        "<Col Name='a'><NewValue>only new</NewValue></Col><Col Name='a'><OldValue>1</OldValue></Col>"
        "<Col Name='a'><OldValue>2</OldValue></Col><Col Name='b\"]'><OldValue>odd</OldValue></Col></Cols>"));
    EXPECT_EQ(xml->old_value_of("a"), "1");
    EXPECT_EQ(xml->old_value_of("A"), "big");
    EXPECT_EQ(xml->old_value_of("b\"]"), "odd");
    EXPECT_EQ(xml->old_value_of("c"), "");
    EXPECT_EQ(xml->old_value_of(""), "") << "no name is not an empty name";
}

struct Text {
    const char* why;
    const char* content;
    const char* expected;
};

const Text texts[] = {
    {"empty", "", ""},
    {"plain", "abc", "abc"},
    {"blanks at the ends stay", " a b  ", " a b  "},
    {"blank-only text stays", "  ", "  "},
    {"a blank-only line stays", "\n\t", "\n\t"},
    {"entities", "&lt;a&gt; &amp;amp; &quot;&apos;", "<a> &amp; \"'"},
    {"character references", "&#228;&#x20AC;&#x1D11E;", "ä€𝄞"},
    {"CR LF reads as LF", "a\r\nb", "a\nb"},
    {"a lone CR reads as LF", "a\rb\r\rc", "a\nb\n\nc"},
    {"a CR written as a reference stays", "a&#13;\nb&#xD;", "a\r\nb\r"},
    {"CDATA", "<![CDATA[<b>&amp; ]]>", "<b>&amp; "},
    {"CR LF in CDATA", "<![CDATA[a\r\nb\rc]]>", "a\nb\nc"},
    {"empty CDATA", "<![CDATA[]]>", ""},
    {"empty CDATA before several texts", "<![CDATA[]]>a<!-- -->b", "ab"},
    {"text and CDATA joined", "a<![CDATA[b]]>c<![CDATA[d]]>", "abcd"},
    {"CDATA first", "<![CDATA[a]]>b", "ab"},
    {"blanks between CDATA sections", "<![CDATA[a]]> <![CDATA[b]]>", "a b"},
    {"a comment is left out", "a<!-- x -->b", "ab"},
    {"an instruction is left out", "a<?x y?>b", "ab"},
    {"only a comment", "<!-- x -->", ""},
    {"texts below, in document order", "a<b>c<d/>e<f> g</f></b>h<i>j</i>", "ace ghj"},
    {"only elements below", "<b/><c><d/></c>", ""},
    {"a single element below", "<b>c</b>", "c"},
    {"NULL is not read here", "NULL", "NULL"},
};

TEST_F(DocumentReader, JoinsAllTextOfANode) {
    for (const Text& text : texts) EXPECT_EQ(first_old_value_of(text.content), text.expected) << text.why;
}

const Text names[] = {
    {"empty", "\"\"", ""},
    {"plain", "\"a\"", "a"},
    {"single quotes", "'a'", "a"},
    {"the other quote", "\"it's\"", "it's"},
    {"the other quote, the other way", "'\"a\"'", "\"a\""},
    {"both quotes", "\"&quot;'\"", "\"'"},
    {"blanks stay", "'  a  b '", "  a  b "},
    {"a tab", "'a\tb'", "a b"},
    {"a line end", "'a\nb'", "a b"},
    {"CR LF is one blank", "'a\r\nb'", "a b"},
    {"a lone CR", "'a\rb\r'", "a b "},
    {"CR LF twice", "'\r\n\r\n'", "  "},
    {"LF CR are two blanks", "'\n\r'", "  "},
    {"white space written as references stays", "'&#10;&#9;&#xD;&#13;&#10;&#32;'", "\n\t\r\r\n "},
    {"a CR before a line end written as a reference", "'\r&#10;'", " \n"},
    {"entities", "'&lt;&gt;&amp;&quot;&apos;'", "<>&\"'"},
    {"an escaped ampersand", "'&amp;lt;'", "&lt;"},
    {"characters of each length", "'A&#x41;ä&#228;€&#x20AC;𝄞&#x1D11E;'", "AAää€€𝄞𝄞"},
    {">, ] and what looks like markup", "'>]]>--?>'", ">]]>--?>"},
};

TEST_F(DocumentReader, NormalisesTheNameAsXmlDoes) {
    for (const Text& text : names) {
        ASSERT_TRUE(xml->load(std::string("<Cols><Col x='' Name\n= ") + text.content + " y=''/></Cols>"))
            << text.why;
        EXPECT_EQ(xml->part(0, name), text.expected) << text.why;
    }
}

TEST_F(DocumentReader, FindsAColumnByItsNormalisedName) {
    ASSERT_TRUE(xml->load("<Cols><Col Name='a\r\nb&amp;'><OldValue>&lt;</OldValue></Col></Cols>"));
    EXPECT_EQ(xml->old_value_of("a b&"), "<");
    EXPECT_EQ(xml->old_value_of("a\r\nb&amp;"), "");
}

TEST_F(DocumentReader, FindsAColumnOfAnEmptyName) {
    ASSERT_TRUE(
        xml->load("<Cols><Col><OldValue>1</OldValue></Col><Col Name=''><OldValue>2</OldValue></Col>"
                  "</Cols>"));
    EXPECT_EQ(xml->old_value_of(""), "2");
}

TEST_F(DocumentReader, TakesAnEmptyOldValueForOne) {
    for (const char* empty : {"<OldValue/>", "<OldValue></OldValue>", "<OldValue a=''><b/></OldValue>"}) {
        ASSERT_TRUE(
            xml->load(std::string("<Cols><Col Name='a'>") + empty +
                      "<OldValue>2</OldValue></Col><Col Name='a'><OldValue>3</OldValue></Col></Cols>"));
        EXPECT_EQ(xml->part(0, old_value), "") << empty;
        EXPECT_EQ(xml->old_value_of("a"), "") << empty;
    }
}

TEST_F(DocumentReader, KeepsTheValuesOfADocumentApart) {
    ASSERT_TRUE(
        xml->load("<Cols>&lt;<Col "
                  "Name='&amp;1'>&lt;<OldValue>a&lt;</OldValue>&lt;<NewValue>b<![CDATA[c]]></NewValue>&lt;"
                  "</Col>&lt;<Col Name='2\n'><NewValue>d<e>f</e>g</NewValue><OldValue>plain</OldValue></Col>"
                  "<Col Name='3'><OldValue/><NewValue>\r</NewValue></Col></Cols>"));
    const struct {
        std::string_view name, old_value, new_value;
    } expected[] = {{"&1", "a<", "bc"}, {"2 ", "plain", "dfg"}, {"3", "", "\n"}};
    ASSERT_EQ(xml->columns(), 3);
    for (std::int32_t i = 0; i < 3; ++i) {
        EXPECT_EQ(xml->part(i, name), expected[i].name) << i;
        EXPECT_EQ(xml->part(i, old_value), expected[i].old_value) << i;
        EXPECT_EQ(xml->part(i, new_value), expected[i].new_value) << i;
    }
}

TEST_F(DocumentReader, LeavesAResolvedValueInItsPlaceWhileOthersGrow) {
    std::string pieces, joined;
    for (int i = 0; i < 1000; ++i) {
        pieces += std::to_string(i) + "<!---->";
        joined += std::to_string(i);
    }
    ASSERT_TRUE(xml->load("<Cols><Col Name='&lt;a value that is not short&gt;'><OldValue>" + pieces +
                          "</OldValue><NewValue>" + pieces + "</NewValue></Col></Cols>"));
    EXPECT_EQ(xml->part(0, name), "<a value that is not short>");
    EXPECT_EQ(xml->part(0, old_value), joined);
    EXPECT_EQ(xml->part(0, new_value), joined);
}

TEST_F(DocumentReader, TakesNothingThatStandsElsewhereForAPart) {
    ASSERT_TRUE(xml->load(
        "<r Name='r'><OldValue>0</OldValue><Cols Name='c'><OldValue>1</OldValue><Row Name='row'><OldValue>2"
        "</OldValue></Row><Col><x Name='x'><OldValue>3</OldValue></x><oldvalue>4</oldvalue><Oldvalue>5"
        "</Oldvalue><OldValues>6</OldValues></Col><Row><OldValue>7</OldValue></Row></Cols>"
        "<Cols><Col Name='late'/></Cols><Col Name='out'><OldValue>8</OldValue></Col></r>"));
    EXPECT_EQ(xml->columns(), 1);
    for (const ColumnPart part : {name, old_value, new_value}) EXPECT_EQ(xml->part(0, part), "");
    for (const char* other : {"r", "c", "row", "x", "late", "out"}) EXPECT_EQ(xml->old_value_of(other), "");
}

TEST_F(DocumentReader, TakesAValueWithinAValueForItsText) {
    EXPECT_EQ(first_old_value_of("a<OldValue>b</OldValue><NewValue>c</NewValue><Cols><Col/></Cols>d"),
              "abcd");
    EXPECT_EQ(xml->part(0, new_value), "");
    EXPECT_EQ(xml->columns(), 1);
}

TEST_F(DocumentReader, HandsOutPartsThatStayUntilTheNextDocument) {
    std::string document =
        "<Cols><Col Name='&lt;'><OldValue>old</OldValue><NewValue>&gt;</NewValue></Col></Cols>";
    ASSERT_TRUE(xml->load(document));
    document.assign(document.size(), 'x');
    const std::string_view parts[] = {xml->part(0, name), xml->part(0, old_value), xml->part(0, new_value)};
    EXPECT_EQ(parts[0], "<");
    EXPECT_EQ(parts[1], "old");
    EXPECT_EQ(parts[2], ">");
}

TEST_F(DocumentReader, HasNothingOfADocumentThatEndsInTheMiddle) {
    const std::string whole =
        "<Cols><Col Name='a\n'><OldValue>1&lt;<![CDATA[2]]></OldValue><NewValue>3</NewValue></Col></Cols>";
    for (std::size_t length = 0; length < whole.size(); ++length) {
        EXPECT_FALSE(xml->load(whole.substr(0, length))) << length;
        EXPECT_EQ(xml->columns(), 0) << length;
        EXPECT_EQ(xml->old_value_of("a "), "") << length;
    }
    ASSERT_TRUE(xml->load(whole));
    EXPECT_EQ(xml->old_value_of("a "), "1<2");
}

TEST_F(DocumentReader, IgnoresTheEncodingThatTheDeclarationNames) {
    for (const char* encoding : {"UTF-16", "windows-1252", "ISO-8859-1", "utf-8"}) {
        const std::string declaration = std::string("<?xml version=\"1.0\" encoding=\"") + encoding + "\"?>";
        ASSERT_TRUE(xml->load(declaration + "<Cols><Col Name=\"ä\"><OldValue>ö€</OldValue></Col></Cols>"));
        EXPECT_EQ(xml->part(0, name), "ä") << encoding;
        EXPECT_EQ(xml->part(0, old_value), "ö€") << encoding;
    }
}

TEST_F(DocumentReader, SkipsAByteOrderMark) {
    ASSERT_TRUE(xml->load("\xEF\xBB\xBF<Cols><Col Name=\"a\"/></Cols>"));
    EXPECT_EQ(xml->part(0, name), "a");
}

TEST_F(DocumentReader, LeavesTheCallersDocumentAlone) {
    const std::string document = "<Cols><Col Name=\"a\"><OldValue>&lt;\r\n</OldValue></Col></Cols>";
    const std::string copy(document.data(), document.size());
    ASSERT_TRUE(xml->load(document));
    EXPECT_EQ(xml->part(0, old_value), "<\n");
    EXPECT_EQ(document, copy);
}

TEST_F(DocumentReader, SurvivesADepthOfAMillion) {
    std::string deep;
    for (int i = 0; i < 1'000'000; ++i) deep += "<d>";
    deep += "x";
    for (int i = 0; i < 1'000'000; ++i) deep += "</d>";
    EXPECT_EQ(first_old_value_of(deep), "x");
    ASSERT_TRUE(xml->load(deep));
    EXPECT_EQ(xml->columns(), 0);
    deep.resize(3'500'000);
    EXPECT_FALSE(xml->load(deep));
}

TEST_F(DocumentReader, ReadsAMillionColumns) {
    std::string document = "<Cols>";
    for (int i = 0; i < 1'000'000; ++i) document += "<Col Name='c'><NewValue>1</NewValue></Col>";
    document += "<Col Name='last'><OldValue>2</OldValue></Col></Cols>";
    ASSERT_TRUE(xml->load(document));
    EXPECT_EQ(xml->columns(), 1'000'001);
    EXPECT_EQ(xml->part(1000000, old_value), "2");
    EXPECT_EQ(xml->old_value_of("last"), "2");
    EXPECT_EQ(xml->old_value_of("c"), "");
}

TEST_F(DocumentReader, ReadsAValueOfAHundredMillionBytesAndThenASmallDocument) {
    const std::string huge(100'000'000, 'x');
    EXPECT_EQ(first_old_value_of(huge), huge);
    EXPECT_EQ(first_old_value_of("small"), "small");
}

TEST_F(DocumentReader, ReadsResolvedTextOfManyMegabytesAndThenASmallDocument) {
    std::string huge, expected;
    for (int i = 0; i < 1'000'000; ++i) {
        huge += "&#x1F600;ab\r\n<![CDATA[c]]>";
        expected += "😀ab\nc";
    }
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(first_old_value_of(huge), expected);
        EXPECT_EQ(first_old_value_of("small&amp;"), "small&");
        EXPECT_EQ(xml->part(0, name), "a");
    }
}

TEST_F(DocumentReader, ReadsAMillionResolvedValues) {
    std::string document = "<Cols>";
    for (int i = 0; i < 1'000'000; ++i)
        document += "<Col Name='&#65;'><OldValue>&lt;" + std::to_string(i) + "</OldValue></Col>";
    ASSERT_TRUE(xml->load(document + "</Cols>"));
    for (const std::int32_t i : {0, 1, 499'999, 999'999}) {
        EXPECT_EQ(xml->part(i, name), "A") << i;
        EXPECT_EQ(xml->part(i, old_value), "<" + std::to_string(i));
    }
}

}  // namespace
}  // namespace prot
