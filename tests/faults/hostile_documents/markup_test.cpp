#include <string>

#include "tests/faults/hostile_documents/document_run.h"

/// Documents that break the rules of XML, or strain them.
namespace prot::faults {
namespace {

using Documents = DocumentRun;

const std::string good = document_of("dzKursEURGeld", "1", "2");
const std::string body = "<Col Name=\"dzKursEURGeld\"><OldValue>1</OldValue><NewValue>2</NewValue></Col>";
const std::vector<Change> good_lines = {{"1", "2"}};

std::string with_old_value(const std::string& text) { return document_of("dzKursEURGeld", text, "2"); }

TEST_F(Documents, ADocumentCutOffAtAnyByteGivesNoLineAndIsNamed) {
    for (std::size_t size = 1; size < good.size(); ++size) {
        const std::string why = "cut off behind byte " + std::to_string(size);
        check({why.c_str(), good.substr(0, size), unreadable});
        if (HasFailure()) return;
    }
}

TEST_F(Documents, OneByteOfADocumentReplacedByMarkupNeverHarmsTheRecordsAround) {
    for (const char byte : {'<', '>', '&', '"', '\0', '\xFF', ']'})
        for (std::size_t at = 0; at < good.size(); ++at) {
            std::string document = good;
            document[at] = byte;
            log.put(2, document);
            WholeProgram program = exporting();
            ASSERT_EQ(program.run(section_table()), 0) << document;
            const std::string written = file();
            EXPECT_TRUE(
                written.starts_with(file_head() + line_of(1, "Kurs EUR (Geld)", "0,93", "0,94") + "\r\n"))
                << document;
            EXPECT_TRUE(written.ends_with("\r\n" + line_of(3, "Kurs fremd", "5", "6") + "\r\n")) << document;
            if (HasFailure()) return;
        }
}

TEST_F(Documents, WhatBreaksTheRulesOfXmlDoesNotLoad) {
    const DocumentCase cases[] = {
        {"two roots: which one is meant?", good + good, unreadable},
        {"text behind the root", good + "x", unreadable},
        {"text before the root", "x" + good, unreadable},
        {"white space only is no document", " \r\n\t ", unreadable},
        {"no markup at all", "dzKursEURGeld: 1 -> 2", unreadable},
        {"a document type may define entities", "<!DOCTYPE Cols>" + good, unreadable},
        {"a document type that reads a file",
         "<!DOCTYPE Cols [<!ENTITY x SYSTEM \"file:///etc/passwd\">]>" + with_old_value("&x;"), unreadable},
        {"an entity nobody defined", with_old_value("&x;"), unreadable},
        {"an ampersand by itself", with_old_value("A & B"), unreadable},
        {"a reference to no character", with_old_value("&#0;"), unreadable},
        {"a reference beyond Unicode", with_old_value("&#x110000;"), unreadable},
        {"a reference of many digits", with_old_value("&#" + std::string(5000, '9') + ";"), unreadable},
        {"a lone surrogate", with_old_value("&#xD800;"), unreadable},
        {"an attribute twice", "<Cols><Col Name=\"dzKursEURGeld\" Name=\"b\"/></Cols>", unreadable},
        {"an attribute without quotes", "<Cols><Col Name=dzKursEURGeld/></Cols>", unreadable},
        {"an attribute without value", "<Cols><Col Name/></Cols>", unreadable},
        {"a less-than sign in an attribute", "<Cols><Col Name=\"<\"/></Cols>", unreadable},
        {"an end tag of another name", "<Cols>" + body + "</Col>", unreadable},
        {"an end tag too many", good + "</Cols>", unreadable},
        {"an end tag first", "</Cols>" + good, unreadable},
        {"names differ by letter case", "<Cols>" + body + "</cols>", unreadable},
        {"the end of a CDATA section in text", with_old_value("]]>"), unreadable},
        {"a CDATA section without end", "<Cols>" + body + "<![CDATA[</Cols>", unreadable},
        {"a comment without end", "<Cols>" + body + "<!-- </Cols>", unreadable},
        {"two hyphens in a comment", "<Cols><!-- a -- b -->" + body + "</Cols>", unreadable},
        {"an XML declaration inside", "<Cols><?xml version=\"1.0\"?>" + body + "</Cols>", unreadable},
        {"an XML declaration behind white space", " <?xml version=\"1.0\"?>" + good, unreadable},
        {"a declaration without version", "<?xml encoding=\"UTF-8\"?>" + good, unreadable},
        {"a NUL before the document", std::string("\0", 1) + good, unreadable},
        {"a NUL in the middle", "<Cols>" + std::string("\0", 1) + body + "</Cols>", unreadable},
        {"a NUL behind the document, and more behind it", good + std::string("\0x", 2), unreadable},
        {"control characters are no XML characters", with_old_value("a\x01z"), unreadable},
    };
    for (const DocumentCase& expected : cases) check(expected);
}

TEST_F(Documents, AnEntityBombDoesNotGoOff) {
    std::string bomb = "<!DOCTYPE b [<!ENTITY a0 \"ha\">";
    for (int i = 1; i <= 30; ++i) {
        const std::string before = "&a" + std::to_string(i - 1) + ";";
        bomb += "<!ENTITY a" + std::to_string(i) + " \"" + before + before + "\">";
    }
    const std::string quadratic = "<!DOCTYPE b [<!ENTITY a \"" + std::string(100000, 'a') + "\">]>";
    std::string references;
    for (int i = 0; i < 10000; ++i) references += "&a;";
    check({"each entity doubles the one before", bomb + "]>" + with_old_value("&a30;"), unreadable});
    check({"one long entity many times", quadratic + with_old_value(references), unreadable});
}

TEST_F(Documents, TextsThatAreNotUtf8DoNotLoad) {
    const DocumentCase cases[] = {
        {"windows-1252", with_old_value("M\xFCller"), unreadable},
        {"a character cut off", with_old_value("M\xC3"), unreadable},
        {"a byte that only continues", with_old_value("\x80"), unreadable},
        {"a slash of two bytes", with_old_value("\xC0\xAF"), unreadable},
        {"a surrogate", with_old_value("\xED\xA0\x80"), unreadable},
        {"beyond Unicode", with_old_value("\xF4\x90\x80\x80"), unreadable},
        {"no such lead byte", with_old_value("\xFE"), unreadable},
        {"a character that XML forbids", with_old_value("\xEF\xBF\xBF"), unreadable},
        {"UTF-16 with its byte order mark", std::string("\xFF\xFE<\0C\0o\0l\0s\0/\0>\0", 16), unreadable},
        {"UTF-16 of the other order", std::string("\xFE\xFF\0<\0C\0o\0l\0s\0/\0>", 16), unreadable},
        {"in a name", document_of("M\xFCller", "1", "2"), unreadable},
        {"in a comment", "<Cols><!-- \xFC -->" + body + "</Cols>", unreadable},
    };
    for (const DocumentCase& expected : cases) check(expected);
}

TEST_F(Documents, WhatIsUnusualButWellFormedLoads) {
    const DocumentCase cases[] = {
        {"a declared encoding means nothing: the text came as Unicode",
         "<?xml version=\"1.0\" encoding=\"UTF-16\"?>" + with_old_value("ü"),
         {{{"ü", "2"}}}},
        {"likewise one nobody knows",
         "<?xml version=\"1.0\" encoding=\"x-9\"?>" + with_old_value("ü"),
         {{{"ü", "2"}}}},
        {"a byte order mark in front", "\xEF\xBB\xBF" + good, good_lines},
        {"comments around the root", "<!-- a -->" + good + "<!-- b -->", good_lines},
        {"comments and instructions everywhere",
         "<?a?><Cols><!--a--><?b c?>" + body + "<!----><?d?></Cols><?e?>", good_lines},
        {"a comment inside a value does not part it", with_old_value("a<!-- x -->b"), {{{"ab", "2"}}}},
        {"an instruction inside a value likewise", with_old_value("a<?x y?>b"), {{{"ab", "2"}}}},
        {"a column that a comment hides", "<Cols><!-- " + body + " --></Cols>", {{}}},
        {"a CDATA section is text", with_old_value("<![CDATA[<a>&amp;]]>"), {{{"\"<a>&amp;\"", "2"}}}},
        {"the largest character", with_old_value("&#x10FFFF;"), {{{"\xF4\x8F\xBF\xBF", "2"}}}},
        {"what a reference stands for is no markup",
         with_old_value("&lt;OldValue&gt;"),
         {{{"<OldValue>", "2"}}}},
    };
    for (const DocumentCase& expected : cases) check(expected);
}

}  // namespace
}  // namespace prot::faults
