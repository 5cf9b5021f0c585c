#include <gtest/gtest.h>

#include <new>
#include <string>

#include "platform/portable/xml/document_reader.h"
#include "tests/faults/failing_memory/failing_memory.h"

/// The memory of the reader of change documents.
namespace prot::faults {
namespace {

/// Uses every buffer that a reader has: several columns, depth, attributes, resolved text.
std::string demanding_document(const std::string& value) {
    std::string document = "<Cols>";
    for (int i = 0; i < 9; ++i)
        document +=
            "<Col a='' b='' Name='&lt;'><OldValue><x><y><z>" + value + "&gt;</z></y></x></OldValue></Col>";
    return document + "</Cols>";
}

/// Loads `document` while allocation `nth` fails. Whether one has failed.
bool fails_to_load(ChangeDocumentReader& reader, const std::string& document, std::size_t nth) {
    const FailingMemory failing(Memory::cpp, nth, Failing::once);
    try {
        reader.load(document);
    } catch (const std::bad_alloc&) {
        return true;
    }
    return false;
}

TEST(ReaderMemory, ServesTheNextDocumentAfterAnyAllocationFailed) {
    const std::string document = demanding_document("value");
    const std::string next = "<Cols><Col Name='a' b='' c=''><OldValue>1&amp;</OldValue></Col></Cols>";
    for (std::size_t nth = 1;; ++nth) {
        SCOPED_TRACE("allocation " + std::to_string(nth));
        const auto reader = create_document_reader();
        ASSERT_TRUE(reader->load("<Cols><Col Name='before'><OldValue>x</OldValue></Col></Cols>"));
        const bool failed = fails_to_load(*reader, document, nth);
        EXPECT_EQ(reader->columns(), failed ? 0 : 9);
        EXPECT_EQ(reader->old_value_of("before"), "");
        EXPECT_EQ(reader->old_value_of("<"), failed ? "" : "value>");
        ASSERT_TRUE(reader->load(next));
        EXPECT_EQ(reader->columns(), 1);
        EXPECT_EQ(reader->old_value_of("a"), "1&");
        if (!failed) {
            EXPECT_GE(nth, 6u) << "text, resolved text, columns, depth and attributes each need memory";
            break;
        }
    }
}

TEST(ReaderMemory, SufficesForTheNextDocumentOfItsSize) {
    const auto reader = create_document_reader();
    ASSERT_TRUE(reader->load(demanding_document("value")));
    for (const char* value : {"other", "v", ""})
        EXPECT_FALSE(fails_to_load(*reader, demanding_document(value), 1)) << value;
}

TEST(ReaderMemory, IsGivenBackBehindALargeDocument) {
    const auto reader = create_document_reader();
    const std::string large = demanding_document(std::string(1'000'000, 'x'));
    ASSERT_TRUE(reader->load(large));
    EXPECT_TRUE(fails_to_load(*reader, large, 1));
}

}  // namespace
}  // namespace prot::faults
