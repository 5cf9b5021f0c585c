#include "platform/portable/xml/xml_tree.h"

#include <gtest/gtest.h>

#include "tests/unit/support/temporary_folder.h"

namespace prot {
namespace {

std::optional<XmlNode> tree_of(const std::string& content) {
    const TemporaryFolder folder;
    write_file(folder / "baum.xml", content);
    return read_xml_tree(folder / "baum.xml");
}

/// The tree as XML without references; texts in brackets.
std::string written(const XmlNode& node) {
    if (!node.is_element()) return '[' + node.text + ']';
    std::string text = '<' + node.name;
    for (const auto& [name, value] : node.attributes) text.append(" ").append(name).append("=").append(value);
    text += '>';
    for (const XmlNode& child : node.children) text += written(child);
    return text + "</>";
}

TEST(XmlTree, HoldsElementsAttributesAndTextsInDocumentOrder) {
    const std::optional<XmlNode> root = tree_of(
        "<a x='1' y='2'>t<b><c/>&amp;u\r\n</b><!-- - --> <d z='&lt;&#10;\n'>v<![CDATA[<w>]]></d></a>");
    ASSERT_TRUE(root);
    EXPECT_EQ(written(*root), "<a x=1 y=2>[t]<b><c></>[&u\n]</>[ ]<d z=<\n >[v][<w>]</></>");
}

TEST(XmlTree, FindsTheFirstChildAndTheAttributeOfAName) {
    const std::optional<XmlNode> root = tree_of("<a x='1'><b><d/></b><c n='1'/><c n='2'/>text</a>");
    ASSERT_TRUE(root);
    ASSERT_NE(root->child("c"), nullptr);
    EXPECT_EQ(root->child("c")->attribute("n"), "1");
    EXPECT_EQ(root->child("d"), nullptr) << "no child of its own";
    EXPECT_EQ(root->child("C"), nullptr);
    EXPECT_EQ(root->attribute("x"), "1");
    EXPECT_EQ(root->attribute("n"), "");
}

TEST(XmlTree, PassesOverAByteOrderMarkAndTheDocumentTypeOfXhtml) {
    for (const char* start : {"\xEF\xBB\xBF", "<!DOCTYPE html>", "<!DOCTYPE html>\r\n",
                              "\xEF\xBB\xBF<!DOCTYPE html>\n<!-- -->"}) {
        const std::optional<XmlNode> root = tree_of(std::string(start) + "<html/>");
        ASSERT_TRUE(root) << start;
        EXPECT_EQ(root->name, "html") << start;
    }
}

TEST(XmlTree, IsNothingOfWhatIsNoDocument) {
    EXPECT_FALSE(read_xml_tree("/nicht/da.xml")) << "no file";
    const TemporaryFolder folder;
    EXPECT_FALSE(read_xml_tree(folder / "")) << "a folder";
    for (const char* content : {"", "text", "<a>", "<a></b>", "<a>&nbsp;</a>", "<a/><b/>", "<!DOCTYPE a><a/>",
                                "<!-- --><!DOCTYPE html><html/>", "<a>\xFC</a>"})
        EXPECT_FALSE(tree_of(content)) << content;
}

}  // namespace
}  // namespace prot
