#include "platform/portable/xml/pugi_document_reader.h"

#include <gtest/gtest.h>

#include <string>

namespace prot {
namespace {

constexpr ColumnPart name = ColumnPart::name, old_value = ColumnPart::old_value,
                     new_value = ColumnPart::new_value;

class PugiDocumentReader : public testing::Test {
protected:
    std::string first_old_value_of(const std::string& content) {
        EXPECT_TRUE(xml->load("<Cols><Col Name=\"a\"><OldValue>" + content + "</OldValue></Col></Cols>"))
            << content;
        return std::string(xml->part(0, old_value));
    }

    std::unique_ptr<ChangeDocumentReader> xml = create_pugi_document_reader();
};

TEST_F(PugiDocumentReader, ReadsNamesAndValuesOfTheColumnsInDocumentOrder) {
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

TEST_F(PugiDocumentReader, HasNothingOutsideItsColumns) {
    ASSERT_TRUE(xml->load("<Cols><Col Name=\"a\"><OldValue>x</OldValue></Col></Cols>"));
    for (const std::int32_t index : {-1, 1, 2, 2147483647, -2147483647 - 1})
        for (const ColumnPart part : {name, old_value, new_value})
            EXPECT_EQ(xml->part(index, part), "") << index;
    EXPECT_EQ(xml->part(0, new_value), "") << "the column has no such element";
    EXPECT_EQ(xml->old_value_of("A"), "") << "names are told apart by letter case";
}

TEST_F(PugiDocumentReader, HasNothingBeforeTheFirstDocumentAndAfterARefusedOne) {
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

TEST_F(PugiDocumentReader, RefusesEndTagsThatDoNotMatch) {
    for (const char* refused :
         {"<a></b>", "<a></ab>", "<ab></a>", "<a><b></a></b>", "<a></A>", "<a>x</b>", "<a><b>x</c></a>",
          "<ab></a >", "<a></a></a>", "<a></a", "<Cols><Col></Col></Col></Cols>", "<abc></a></bcd>",
          "<abc>x</x></y></abc>"}) {
        EXPECT_FALSE(xml->load(refused)) << refused;
    }
    EXPECT_TRUE(xml->load("<a><b>x</b ><b></b\n></a\t>"));
}

TEST_F(PugiDocumentReader, RefusesWhatTheStrictCheckRefuses) {
    for (const char* refused :
         {"<!DOCTYPE Cols><Cols/>", "<Cols>&unknown;</Cols>", "<Cols/>text", "<Cols>\xFF</Cols>"}) {
        EXPECT_FALSE(xml->load(refused)) << refused;
    }
}

// A check that took the last element's name length for that of the end tag once ran past the root's end here.
TEST_F(PugiDocumentReader, RefusesTextAfterTheRootThatEndsLikeATag) {
    EXPECT_FALSE(xml->load("<Cols><NewValue/></Cols>\n]]><!--e-->"));
    EXPECT_FALSE(xml->load("<Cols><NewValue></NewValue></Cols>xxx>"));
}

TEST_F(PugiDocumentReader, LoadsNoEntityBomb) {
    EXPECT_FALSE(xml->load(
        "<!DOCTYPE a [<!ENTITY b 'xxxxxxxxxx'><!ENTITY c '&b;&b;&b;&b;'><!ENTITY d '&c;&c;&c;&c;'>]>"
        "<Cols><Col Name=\"a\"><OldValue>&d;</OldValue></Col></Cols>"));
}

TEST_F(PugiDocumentReader, TakesTheFirstColsAnywhereInTheDocument) {
    ASSERT_TRUE(
        xml->load("<r><x><y/></x><z><Cols><Col Name=\"a\"/></Cols></z><Cols><Col/><Col/></Cols></r>"));
    EXPECT_EQ(xml->columns(), 1);
    EXPECT_EQ(xml->part(0, name), "a");
}

TEST_F(PugiDocumentReader, TakesTheOuterOfTwoNestedCols) {
    ASSERT_TRUE(xml->load("<Cols><Cols><Col Name=\"inner\"/></Cols><Col Name=\"outer\"/></Cols>"));
    EXPECT_EQ(xml->columns(), 1);
    EXPECT_EQ(xml->part(0, name), "outer");
}

TEST_F(PugiDocumentReader, LoadsADocumentWithoutColumns) {
    EXPECT_TRUE(xml->load("<Rows><Col Name=\"a\"/></Rows>"));
    EXPECT_EQ(xml->columns(), 0);
    EXPECT_TRUE(xml->load("<Cols/>"));
    EXPECT_EQ(xml->columns(), 0);
}

TEST_F(PugiDocumentReader, ComparesNamesAsTheyAreWritten) {
    ASSERT_TRUE(xml->load(
        "<p:Cols xmlns:p='u'><p:Col Name='a'/><Cols><col Name='b'/><Col name='c'/></Cols></p:Cols>"));
    EXPECT_EQ(xml->columns(), 1);
    EXPECT_EQ(xml->part(0, name), "");
}

TEST_F(PugiDocumentReader, CountsOnlyColElements) {
    ASSERT_TRUE(
        xml->load("<Cols> text <Row/><Col Name='a'/><!--<Col/>--><![CDATA[<Col/>]]><Col Name='b'/></Cols>"));
    EXPECT_EQ(xml->columns(), 2);
    EXPECT_EQ(xml->part(1, name), "b");
}

TEST_F(PugiDocumentReader, FindsAValueWhereverItStandsInItsColumn) {
    ASSERT_TRUE(
        xml->load("<Cols><Col Name='a'><NewValue>n</NewValue> <x><OldValue>no</OldValue></x>"
                  "<OldValue>first</OldValue><OldValue>second</OldValue></Col></Cols>"));
    EXPECT_EQ(xml->part(0, old_value), "first");
    EXPECT_EQ(xml->part(0, new_value), "n");
}

TEST_F(PugiDocumentReader, ReadsTheOldValueOfTheFirstColumnOfAName) {
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

TEST_F(PugiDocumentReader, JoinsAllTextOfANode) {
    for (const Text& text : texts) EXPECT_EQ(first_old_value_of(text.content), text.expected) << text.why;
}

TEST_F(PugiDocumentReader, NormalisesTheWhiteSpaceOfAnAttribute) {
    ASSERT_TRUE(xml->load("<Cols><Col Name=' a\r\nb\tc\nd\re&#10;f&#9;&lt; '/></Cols>"));
    EXPECT_EQ(xml->part(0, name), " a b c d e\nf\t< ");
}

TEST_F(PugiDocumentReader, IgnoresTheEncodingThatTheDeclarationNames) {
    for (const char* encoding : {"UTF-16", "windows-1252", "ISO-8859-1", "utf-8"}) {
        const std::string declaration = std::string("<?xml version=\"1.0\" encoding=\"") + encoding + "\"?>";
        ASSERT_TRUE(xml->load(declaration + "<Cols><Col Name=\"ä\"><OldValue>ö€</OldValue></Col></Cols>"));
        EXPECT_EQ(xml->part(0, name), "ä") << encoding;
        EXPECT_EQ(xml->part(0, old_value), "ö€") << encoding;
    }
}

TEST_F(PugiDocumentReader, SkipsAByteOrderMark) {
    ASSERT_TRUE(xml->load("\xEF\xBB\xBF<Cols><Col Name=\"a\"/></Cols>"));
    EXPECT_EQ(xml->part(0, name), "a");
}

TEST_F(PugiDocumentReader, LeavesTheCallersDocumentAlone) {
    const std::string document = "<Cols><Col Name=\"a\"><OldValue>&lt;\r\n</OldValue></Col></Cols>";
    const std::string copy(document.data(), document.size());
    ASSERT_TRUE(xml->load(document));
    EXPECT_EQ(xml->part(0, old_value), "<\n");
    EXPECT_EQ(document, copy);
}

TEST_F(PugiDocumentReader, SurvivesADepthOfAMillion) {
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

TEST_F(PugiDocumentReader, ReadsAMillionColumns) {
    std::string document = "<Cols>";
    for (int i = 0; i < 1'000'000; ++i) document += "<Col Name='c'><NewValue>1</NewValue></Col>";
    document += "<Col Name='last'><OldValue>2</OldValue></Col></Cols>";
    ASSERT_TRUE(xml->load(document));
    EXPECT_EQ(xml->columns(), 1'000'001);
    EXPECT_EQ(xml->part(1000000, old_value), "2");
    EXPECT_EQ(xml->old_value_of("last"), "2");
    EXPECT_EQ(xml->old_value_of("c"), "");
}

TEST_F(PugiDocumentReader, ReadsAValueOfAHundredMillionBytesAndThenASmallDocument) {
    const std::string huge(100'000'000, 'x');
    EXPECT_EQ(first_old_value_of(huge), huge);
    EXPECT_EQ(first_old_value_of("small"), "small");
}

}  // namespace
}  // namespace prot
