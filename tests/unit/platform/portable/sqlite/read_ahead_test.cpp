#include "platform/portable/sqlite/read_ahead.h"

#include <gtest/gtest.h>

#include <atomic>
#include <stdexcept>

namespace prot {
namespace {

void put(RowSet& batch, std::int64_t number) {
    if (batch.columns() == 0) batch = RowSet(1);
    batch.add_row();
    batch.set(0, number);
}

TEST(ReadAhead, HandsOverTheBatchesInOrder) {
    std::int64_t next = 0;  // of the thread
    ReadAhead ahead([&next](RowSet& batch, const std::atomic<bool>&) {
        if (next < 100) put(batch, next++);
    });
    for (std::int64_t number = 0; number < 100; ++number) {
        const RowSet& batch = ahead.next();
        ASSERT_EQ(batch.rows(), 1U);
        EXPECT_EQ(batch.at(0, 0).integer(), number);
    }
    EXPECT_TRUE(ahead.next().empty());
    EXPECT_TRUE(ahead.next().empty());
}

TEST(ReadAhead, ReadsAFewBatchesAheadAndNeverIntoTheOneInUse) {
    std::atomic<int> read = 0;
    ReadAhead ahead([&read](RowSet& batch, const std::atomic<bool>&) { put(batch, ++read); });
    const RowSet* in_use = &ahead.next();
    for (int number = 1; number < 50; ++number) {
        for (int look = 0; look < 1000 && read < number + 3; ++look) std::this_thread::yield();
        EXPECT_LE(read, number + 3) << "three ahead of the one in use";
        EXPECT_EQ(in_use->at(0, 0).integer(), number);
        in_use = &ahead.next();
    }
}

TEST(ReadAhead, RaisesAFailureBehindWhatWasReadBefore) {
    int read = 0;
    ReadAhead ahead([&read](RowSet& batch, const std::atomic<bool>&) {
        if (++read == 3) throw std::runtime_error("kaputt");
        put(batch, read);
    });
    EXPECT_EQ(ahead.next().at(0, 0).integer(), 1);
    EXPECT_EQ(ahead.next().at(0, 0).integer(), 2);
    EXPECT_THROW(ahead.next(), std::runtime_error);
    EXPECT_THROW(ahead.next(), std::runtime_error) << "and again";
}

TEST(ReadAhead, EndsAtAnyTime) {
    for (int batches = 0; batches < 8; ++batches) {
        ReadAhead ahead([](RowSet& batch, const std::atomic<bool>&) { put(batch, 1); });
        for (int i = 0; i < batches; ++i) ahead.next();
    }
}

TEST(ReadAhead, AsksALongReadToStop) {
    std::atomic<bool> reads = false;
    ReadAhead ahead([&reads](RowSet&, const std::atomic<bool>& stop) {
        reads = true;
        while (!stop) std::this_thread::yield();
    });
    while (!reads) std::this_thread::yield();
}

}  // namespace
}  // namespace prot
