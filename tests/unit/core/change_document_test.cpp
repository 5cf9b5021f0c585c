#include "core/change_document.h"

#include <gtest/gtest.h>

#include "tests/unit/support/fakes.h"

namespace prot {
namespace {

using test::FakeHost;
using Loaded = ChangeDocument::Loaded;

class Document : public testing::Test {
protected:
    FakeHost host;
    ChangeDocument document{host.environment};

    Document() {
        host.documents["two"] = {{"OP_ART", "1", "2"}, {"OP_TEXT", "NULL", "neu"}};
        host.documents["one"] = {{"NULL", "a", "NULL"}};
    }
};

TEST_F(Document, GivesItsColumnsInTheirOrder) {
    ASSERT_EQ(document.load("two"), Loaded::yes);
    EXPECT_EQ(document.columns(), 2);
    EXPECT_EQ(document.select(0), "OP_ART");
    EXPECT_EQ(document.old_value(), "1");
    EXPECT_EQ(document.new_value(), "2");
    EXPECT_EQ(document.select(1), "OP_TEXT");
    EXPECT_EQ(document.new_value(), "neu");
}

TEST_F(Document, ReadsTheTextNullAsEmptyInEveryPart) {
    document.load("two");
    document.select(1);
    EXPECT_EQ(document.old_value(), "");
    document.load("one");
    EXPECT_EQ(document.select(0), "");
    EXPECT_EQ(document.new_value(), "");
}

TEST_F(Document, HasNoColumnsUnlessItLoaded) {
    for (const auto& [text, loaded] :
         {std::pair{"", Loaded::empty}, std::pair{"kaputt", Loaded::unreadable}}) {
        document.load("two");
        EXPECT_EQ(document.load(text), loaded) << text;
        EXPECT_EQ(document.columns(), 0) << "those of the document before are gone: " << text;
    }
}

TEST_F(Document, MakesOneReaderForTheFirstThatIsNotEmpty) {
    document.load("");
    EXPECT_EQ(host.readers_created, 0);
    document.load("two");
    document.load("kaputt");
    document.load("one");
    EXPECT_EQ(host.readers_created, 1);
}

/// A reader that holds one value at a time.
class ForgetfulReader : public test::FakeDocumentReader {
public:
    using FakeDocumentReader::FakeDocumentReader;
    std::string_view part(std::int32_t index, ColumnPart part) override {
        held_ = FakeDocumentReader::part(index, part);
        return held_;
    }

private:
    std::string held_;
};

TEST(DocumentOfAForgetfulReader, KeepsTheNameWhileValuesAreRead) {
    struct Host : FakeHost {
        std::unique_ptr<ChangeDocumentReader> create_change_document_reader() override {
            return std::make_unique<ForgetfulReader>(documents);
        }
    } host;
    host.documents["doc"] = {{"OP_ART", "1", "2"}};
    ChangeDocument document(host.environment);
    document.load("doc");
    const std::string_view name = document.select(0);
    EXPECT_EQ(document.old_value(), "1");
    EXPECT_EQ(document.new_value(), "2");
    EXPECT_EQ(name, "OP_ART");
}

}  // namespace
}  // namespace prot
