#include "platform/portable/help/page_text.h"

#include <gtest/gtest.h>

#include "tests/unit/support/temporary_folder.h"

namespace prot {
namespace {

std::optional<std::string> text_of_file(const std::string& content, std::size_t width) {
    const TemporaryFolder folder;
    write_file(folder / "seite.html", content);
    return page_text(folder / "seite.html", width);
}

std::string text_of(const std::string& body, std::size_t width = 76) {
    return text_of_file("<!DOCTYPE html>\n<html><head><title>Titel</title></head><body>\n" + body +
                            "\n</body></html>\n",
                        width)
        .value_or("(no text)");
}

TEST(PageText, RendersEachElement) {
    const struct {
        const char *body, *expected, *why;
    } rows[] = {
        {"<h1>Über Kurse</h1>", "Über Kurse\n==========\n", "the underline counts characters, not bytes"},
        {"<h2>Felder</h2><p>Eins.</p>", "Felder\n------\n\nEins.\n", "blank lines separate blocks"},
        {"<p>Eins\n  <b>zwei</b> <code>drei</code>, <a href=\"x.html\">vier</a>.</p>",
         "Eins zwei drei, vier.\n", "white space is one blank, also between elements, and marks are dropped"},
        {"<ul><li>eins</li><li>zwei</li></ul>", "- eins\n- zwei\n", "a list"},
        {"<ol><li>eins</li><li>zwei</li></ol>", "1. eins\n2. zwei\n", "a numbered list"},
        {"<table><tr><th>Spalte</th><th>Inhalt</th></tr><tr><td>Datum</td><td>ein <b>Tag</b></td></tr>"
         "<tr><td>Aktion</td><td>was</td></tr></table>",
         "Datum: ein Tag\nAktion: was\n", "a row of two cells is a line"},
        {"<table><tr><th>Code</th><th>Name</th><th>Kurs</th></tr>"
         "<tr><td>CHF</td><td>Franken</td><td>0,95</td></tr></table>",
         "CHF\n  Name: Franken\n  Kurs: 0,95\n", "a longer row names its columns"},
        {"<table><tr><td>a</td><td>b</td><td>c</td></tr></table>", "a\n  b\n  c\n", "no headings, no names"},
        {"<table><tr><th>Code</th><th>Name</th></tr><tr><td>a</td><td>b</td><td>c</td></tr></table>",
         "a\n  Name: b\n  c\n", "more cells than headings"},
        {"<table><tr><td>allein</td></tr></table>", "allein\n", "a row of one cell"},
        {"<table><tr><th>A</th><th>B</th><th>C</th></tr><tr><td>1</td><td>2</td><td>3</td></tr>"
         "<tr><th>D</th><th>E</th><th>F</th></tr><tr><td>4</td><td>5</td><td>6</td></tr></table>",
         "1\n  B: 2\n  C: 3\n4\n  E: 5\n  F: 6\n", "headings hold until the next"},
        {"<p>davor</p><table><tr><td>a</td><td>b</td></tr></table><ul><li>c</li></ul><h1>D</h1>",
         "davor\n\na: b\n\n- c\n\nD\n=\n", "blank lines separate blocks of every kind"},
        {"<ol><li>eins</li></ol><ol><li>neu</li></ol>", "1. eins\n\n1. neu\n", "each list counts anew"},
        {"<![CDATA[<lose>]]>", "<lose>\n", "text as it stands"},
        {"<p> \n </p><p>da</p>", "da\n", "an empty paragraph is none"},
        {"<div><p>innen</p></div>", "innen\n", "an unknown element counts for its contents"},
        {"lose", "lose\n", "text outside of a paragraph is one"},
        {"<p>&lt;A &amp; B&gt; &#8222;C&#8220;</p>", "<A & B> „C“\n", "references are resolved"},
        {"<p>eins<!-- nichts --> zwei</p>", "eins zwei\n", "comments are left out"},
        {"", "", "an empty page has an empty text"},
    };
    for (const auto& row : rows) EXPECT_EQ(text_of(row.body), row.expected) << row.why;
}

TEST(PageText, WrapsAtTheWidthAndIndentsWhatFollowsAMark) {
    const struct {
        const char *body, *expected, *why;
    } rows[] = {
        {"<p>aaaa bbbb cc dd</p>", "aaaa bbbb\ncc dd\n", "a break at the last blank that fits"},
        {"<p>aaaa bbbbb cc</p>", "aaaa bbbbb\ncc\n", "a line as long as the width fits"},
        {"<p>öööö üüüüü cc</p>", "öööö üüüüü\ncc\n", "the width counts characters"},
        {"<p>a bbbbbbbbbbbbbbb c</p>", "a\nbbbbbbbbbbbbbbb\nc\n", "a longer word has a line of its own"},
        {"<ul><li>aaaa bbb cc</li></ul>", "- aaaa bbb\n  cc\n", "below the text, not below the mark"},
        {"<ol><li>aaaa bb cc</li></ol>", "1. aaaa bb\n   cc\n", "likewise below a number"},
        {"<table><tr><td>aaaa</td><td>bbbb cc</td></tr></table>", "aaaa: bbbb\n  cc\n", "a row hangs by two"},
    };
    for (const auto& row : rows) EXPECT_EQ(text_of(row.body, 10), row.expected) << row.why;
}

TEST(PageText, RefusesWhatIsNoPage) {
    EXPECT_FALSE(page_text("/nicht/da.html", 76)) << "no file";
    EXPECT_FALSE(text_of_file("<html><body><p>offen</body></html>", 76)) << "an element that is not ended";
    EXPECT_FALSE(text_of_file("", 76)) << "an empty file";
    EXPECT_FALSE(text_of_file("<html><head/></html>", 76)) << "no body";
}

}  // namespace
}  // namespace prot
