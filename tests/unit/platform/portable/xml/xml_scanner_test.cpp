#include "platform/portable/xml/xml_scanner.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/portable/xml/xml_text.h"

namespace prot::xml {
namespace {

using namespace std::string_literals;

/// What the scanner tells, in a line of its own each; texts resolved.
struct Record {
    void begin_element(std::string_view name) { told.append("begin ").append(name) += '\n'; }
    void attribute(std::string_view name, Stretch value) {
        told.append("attribute ").append(name) += '=';
        append_text(told, value);
        told += '\n';
    }
    void text(Stretch text) {
        told += "text ";
        append_text(told, text);
        told += '\n';
    }
    void end_element() { told += "end\n"; }

    std::string told;
};

bool is_well_formed(const std::string& document) {
    Record record;
    return Scanner(record).scan(document);
}

std::string told_of(const std::string& document) {
    Record record;
    EXPECT_TRUE(Scanner(record).scan(document)) << document;
    return record.told;
}

struct Document {
    const char* why;
    std::string text;
};

const Document strict_documents[] = {
    {"an empty root", "<a/>"},
    {"a byte order mark", "\xEF\xBB\xBF<a/>"},
    {"white space around the root", " \r\n\t<a/>\n "},
    {"a declaration", "<?xml version=\"1.0\"?><a/>"},
    {"all parts of a declaration", "<?xml version='1.0' encoding='UTF-16' standalone='yes' ?><a/>"},
    {"another encoding's name means nothing", "<?xml version=\"1.0\" encoding=\"windows-1252\"?><a/>"},
    {"a later version is read as 1.0", "<?xml version=\"1.1\"?><a/>"},
    {"comments and instructions around the root", "<!-- a --><?p i?><a/><!----><?p?>"},
    {"an instruction whose name only begins with xml", "<?xml-stylesheet href='x'?><a/>"},
    {"all five entities", "<a>&lt;&gt;&amp;&quot;&apos;</a>"},
    {"character references", "<a b='&#10;'>&#65;&#x41;&#xaF;&#x10FFFF;&#9;&#0000065;&#xD7FF;&#xE000;</a>"},
    {"anything but its end in a CDATA section", "<a><![CDATA[<b>&c; ]] ]>--?]]]></a>"},
    {"an empty CDATA section", "<a><![CDATA[]]></a>"},
    {"single hyphens in a comment", "<a><!-- - <b> & - --></a>"},
    {"question marks in an instruction", "<a><?p ? ?? <>&?></a>"},
    {"brackets and > in text", "<a>] ]] ]> > ></a>"},
    {"> and the other quote in a value", "<a b='>\"' c=\">'\"/>"},
    {"white space wherever it may stand", "<a \n b\t=\r\n'c' ></a\n>"},
    {"umlauts in names, values and text", "<Straße größe='ü'>ä€𝄞</Straße>"},
    {"all ASCII that a name may hold", "<_:a.b-c1 :x='' _y=''/>"},
    {"a combining character inside a name", "<e\xCC\x81/>"},
    {"C1 controls", "<a>\xC2\x85\xC2\x9F</a>"},
    {"many attributes", "<a b='' c='' d='' B='' bb=''/>"},
    {"the same attribute in different elements", "<a b=''><c b='' d=''/></a>"},
    {"depth", "<a><b><c/></b><b></b></a>"},
    {"end tags of elements with attributes", "<a b=''><c\td=''></c></a>"},
    {"elements of names that begin alike", "<a><aa></aa><a></a></a>"},
    {"a text longer than any block", "<a>" + std::string(1000, 'x') + "</a>"},
};

const Document refused_documents[] = {
    {"nothing", ""},
    {"only a byte order mark", "\xEF\xBB\xBF"},
    {"only blanks", "  \n"},
    {"only a declaration", "<?xml version=\"1.0\"?>"},
    {"only a comment", "<!-- a -->"},
    {"only text", "abc"},
    {"two roots", "<a/><b/>"},
    {"two roots with content", "<a></a><a></a>"},
    {"text before the root", "x<a/>"},
    {"text after the root", "<a/>x"},
    {"a reference after the root", "<a/>&#32;"},
    {"CDATA after the root", "<a/><![CDATA[x]]>"},
    {"CDATA before the root", "<![CDATA[x]]><a/>"},
    {"an end tag after the root", "<a/></a>"},
    {"two byte order marks", "\xEF\xBB\xBF\xEF\xBB\xBF<a/>"},
    {"a document type", "<!DOCTYPE a><a/>"},
    {"a document type with entities", "<!DOCTYPE a [<!ENTITY b 'c'>]><a>&b;</a>"},
    {"a document type inside", "<a><!DOCTYPE a></a>"},
    {"an unknown entity", "<a>&nbsp;</a>"},
    {"an entity in the wrong case", "<a>&LT;</a>"},
    {"a bare ampersand", "<a>b & c</a>"},
    {"an ampersand at the end", "<a>&</a>"},
    {"an entity without its end", "<a>&lt</a>"},
    {"an unknown entity in a value", "<a b='&x;'/>"},
    {"U+0000", "<a>&#0;</a>"},
    {"a referred control character", "<a>&#x1F;</a>"},
    {"a referred surrogate", "<a>&#xD800;</a>"},
    {"a referred U+FFFE", "<a>&#xFFFE;</a>"},
    {"a referred U+FFFF", "<a>&#65535;</a>"},
    {"beyond Unicode", "<a>&#x110000;</a>"},
    {"a number that overflows to a letter", "<a>&#x100000041;</a>"},
    {"a reference without digits", "<a>&#;</a>"},
    {"a hexadecimal reference without digits", "<a>&#x;</a>"},
    {"a capital X", "<a>&#X41;</a>"},
    {"hexadecimal digits without x", "<a>&#4A;</a>"},
    {"a reference with a sign", "<a>&#-65;</a>"},
    {"a reference without its end", "<a>&#65</a>"},
    {"a control character", "<a>\x01</a>"},
    {"a control character in a value", "<a b='\x1F'/>"},
    {"a control character in a comment", "<a><!--\x0B--></a>"},
    {"a control character in CDATA", "<a><![CDATA[\x0C]]></a>"},
    {"a NUL in text", "<a>b\0c</a>"s},
    {"a NUL after the root", "<a/>\0"s},
    {"a NUL before the root", "\0<a/>"s},
    {"a NUL in a tag", "<a\0/>"s},
    {"a NUL in an end tag", "<a></a\0>"s},
    {"U+FFFE", "<a>\xEF\xBF\xBE</a>"},
    {"U+FFFF in a value", "<a b='\xEF\xBF\xBF'/>"},
    {"ISO 8859-1", "<a>M\xFCller</a>"},
    {"a cut UTF-8 character", "<a>\xC3</a>"},
    {"a cut UTF-8 character at the end", "<a>\xE2\x82"},
    {"an overlong form", "<a>\xC0\xBC</a>"},
    {"an overlong form of three bytes", "<a>\xE0\x80\xBC</a>"},
    {"a surrogate in UTF-8", "<a>\xED\xA0\x80</a>"},
    {"UTF-8 beyond Unicode", "<a>\xF4\x90\x80\x80</a>"},
    {"a lone continuation byte", "<a><![CDATA[\x80]]></a>"},
    {"a CDATA end in text", "<a>b]]>c</a>"},
    {"< in a value", "<a b='<'/>"},
    {"the same attribute twice", "<a b='1' b='2'/>"},
    {"the same attribute twice, apart", "<a b='1' c='2' d='' b='1'/>"},
    {"two hyphens in a comment", "<a><!-- b -- c --></a>"},
    {"a comment that ends in three hyphens", "<a><!-- b ---></a>"},
    {"a comment of one hyphen", "<a><!-></a>"},
    {"a comment without its end", "<a><!-- b </a>"},
    {"CDATA without its end", "<a><![CDATA[ b ]></a>"},
    {"CDATA in small letters", "<a><![cdata[b]]></a>"},
    {"an instruction without its end", "<a/><?p"},
    {"an instruction without a name", "<?  p?><a/>"},
    {"no blank after an instruction's name", "<?p+q?><a/>"},
    {"a declaration after a blank", " <?xml version=\"1.0\"?><a/>"},
    {"a declaration after a comment", "<!--a--><?xml version=\"1.0\"?><a/>"},
    {"a declaration inside", "<a><?xml version=\"1.0\"?></a>"},
    {"an instruction named XmL", "<?XmL?><a/>"},
    {"a declaration without a version", "<?xml encoding='UTF-8'?><a/>"},
    {"an empty declaration", "<?xml ?><a/>"},
    {"an unknown version", "<?xml version='2.0'?><a/>"},
    {"an incomplete version", "<?xml version='1.'?><a/>"},
    {"a wrong encoding name", "<?xml version='1.0' encoding='8bit'?><a/>"},
    {"parts in the wrong order", "<?xml version='1.0' standalone='no' encoding='UTF-8'?><a/>"},
    {"standalone is yes or no", "<?xml version='1.0' standalone='maybe'?><a/>"},
    {"no blank between the parts", "<?xml version='1.0'encoding='UTF-8'?><a/>"},
    {"a value without quotes", "<a b=c/>"},
    {"a value without its end", "<a b='c/>"},
    {"different quotes", "<a b='c\"/>"},
    {"an attribute without a value", "<a b/>"},
    {"an attribute without =", "<a b 'c'/>"},
    {"no blank between attributes", "<a b='c'd='e'/>"},
    {"no blank before an attribute", "<a'b'/>"},
    {"a name that begins with a digit", "<1a/>"},
    {"a name that begins with a hyphen", "<-a/>"},
    {"a name that begins with a point", "<a .b=''/>"},
    {"a name that begins with a combining character", "<\xCC\x81/>"},
    {"a multiplication sign in a name", "<a\xC3\x97/>"},
    {"a blank before the name", "< a/>"},
    {"an end tag without a name", "<a></>"},
    {"a blank in an end tag's start", "<a></ a>"},
    {"an attribute in an end tag", "<a></a b=''>"},
    {"a blank inside />", "<a/ >"},
    {"a slash before attributes", "<a / b=''>"},
    {"a cut start tag", "<a"},
    {"a cut start tag inside", "<a><b"},
    {"a cut attribute", "<a b="},
    {"a cut end tag", "<a></a"},
    {"no end tag", "<a>"},
    {"a lone <", "<"},
    {"a lone </", "<a></"},
    {"a lone <!", "<a><!"},
    {"the end tag of another element", "<a></b>"},
    {"an end tag of other letter case", "<a></A>"},
    {"an end tag that is longer", "<a></ab>"},
    {"an end tag that is shorter", "<ab></a>"},
    {"an end tag that is shorter, with a blank", "<ab></a >"},
    {"an end tag that differs at its end", "<äb></äc>"},
    {"an end tag that differs in the middle of a character", "<ä></ö>"},
    {"an end tag that goes on beyond ASCII", "<a></aä>"},
    {"an end tag that goes on like the start tag does", "<a b=''></a b=''>"},
    {"an end tag with a slash, as the start tag's end", "<a><b/></b/></a>"},
    {"elements that overlap", "<a><b></a></b>"},
    {"the end tag of the element around it", "<a><b></a>"},
    {"an end tag behind one of the same name", "<a><a></a></b>"},
};

TEST(XmlScanner, TakesWhatTheGrammarAllows) {
    for (const Document& document : strict_documents) {
        EXPECT_TRUE(is_well_formed(document.text)) << document.why;
    }
}

TEST(XmlScanner, RefusesWhatTheGrammarForbids) {
    for (const Document& document : refused_documents) {
        EXPECT_FALSE(is_well_formed(document.text)) << document.why;
    }
}

TEST(XmlScanner, RefusesEveryTruncationOfADocument) {
    const std::string whole =
        "\xEF\xBB\xBF<?xml version='1.0' encoding=\"UTF-8\" standalone='no'?><!--c-->\r\n<ä b='&#65;ß' c\t= "
        "\"\r\"\n>"
        "x&lt;y<![CDATA[]z]]]>]<?p q?><!-- - --><b ><c d=''/></b\t>&#x20AC;</ä>";
    ASSERT_TRUE(is_well_formed(whole));
    for (std::size_t length = 0; length < whole.size(); ++length) {
        EXPECT_FALSE(is_well_formed(whole.substr(0, length))) << length;
    }
}

TEST(XmlScanner, TellsOfElementsAttributesAndTextInDocumentOrder) {
    EXPECT_EQ(told_of("<a b='1' c=\"2\">x<d/>y<e f=''>z</e></a>"),
              "begin a\nattribute b=1\nattribute c=2\ntext x\nbegin d\nend\ntext y\nbegin e\nattribute f=\n"
              "text z\nend\nend\n");
}

TEST(XmlScanner, TellsOfNothingElse) {
    EXPECT_EQ(told_of("\xEF\xBB\xBF<?xml version='1.0'?> <!--c--><?p i?><a><!--c--><?p i?></a> <!--c-->"),
              "begin a\nend\n");
}

TEST(XmlScanner, TellsOfEachCdataSectionByItself) {
    EXPECT_EQ(told_of("<a>x<![CDATA[<&lt;>]]><![CDATA[y]]>]]</a>"),
              "begin a\ntext x\ntext <&lt;>\ntext y\ntext ]]\nend\n");
}

TEST(XmlScanner, TellsOfNoEmptyText) {
    EXPECT_EQ(told_of("<a><![CDATA[]]><b></b><!-- --><![CDATA[]]></a>"), "begin a\nbegin b\nend\nend\n");
}

TEST(XmlScanner, TellsWhichTextStandsAsItIs) {
    struct Forms {
        void begin_element(std::string_view) {}
        void attribute(std::string_view, Stretch value) { seen.push_back(value.form); }
        void text(Stretch text) { seen.push_back(text.form); }
        void end_element() {}
        std::vector<Form> seen;
    };
    const struct {
        const char* document;
        Form form;
    } rows[] = {
        {"<a>x ä\n\t]></a>", Form::plain},      {"<a>x&lt;</a>", Form::character_data},
        {"<a>x\r</a>", Form::character_data},   {"<a><![CDATA[x]]></a>", Form::cdata_section},
        {"<a b='x ä\">'/>", Form::plain},       {"<a b='&#13;'/>", Form::attribute_value},
        {"<a b='\r'/>", Form::attribute_value}, {"<a b='\n'/>", Form::attribute_value},
        {"<a b='\t'/>", Form::attribute_value},
    };
    for (const auto& row : rows) {
        Forms forms;
        EXPECT_TRUE(Scanner(forms).scan(row.document)) << row.document;
        EXPECT_EQ(forms.seen, std::vector<Form>{row.form}) << row.document;
    }
}

TEST(XmlScanner, RemembersNoAttributeOfARefusedDocument) {
    Record record;
    Scanner scanner(record);
    EXPECT_FALSE(scanner.scan("<a b='' c='' d"));
    EXPECT_TRUE(scanner.scan("<a b='' c=''/>"));
    EXPECT_FALSE(scanner.scan("<a><b><c"));
    EXPECT_FALSE(scanner.scan("<a></a></b>"));
    EXPECT_FALSE(scanner.scan("<a b='' c='' b=''/>"));
    EXPECT_TRUE(scanner.scan("<a b='' c=''><d b=''/><e c='' b=''/></a>"));
}

TEST(XmlScanner, FindsADoubleAmongAHundredThousandAttributesInNoTime) {
    std::string document = "<a";
    for (int i = 0; i < 100'000; ++i) document += " n" + std::to_string(i) + "=''";
    EXPECT_TRUE(is_well_formed(document + "/>"));
    EXPECT_FALSE(is_well_formed(document + " n5=''/>"));
}

}  // namespace
}  // namespace prot::xml
