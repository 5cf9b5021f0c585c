#include "core/id_memory.h"

#include <gtest/gtest.h>

#include <string>

namespace prot {
namespace {

TEST(IdMemory, KnowsNothingAtFirst) {
    const IdMemory<std::string> memory;
    EXPECT_EQ(memory.find(0), nullptr);
    EXPECT_EQ(memory.find(-1), nullptr);
}

TEST(IdMemory, FindsEveryAnswerWhileItGrows) {
    IdMemory<std::string> memory;
    const std::string& first = memory.remember(0, "null");
    for (std::int32_t i = 1; i < 20000; ++i) {
        const std::int32_t id = i % 2 ? i * 1024 : -i * 7;
        ASSERT_EQ(memory.find(id), nullptr) << id;
        memory.remember(id, std::to_string(id));
    }
    for (std::int32_t i = 1; i < 20000; ++i) {
        const std::int32_t id = i % 2 ? i * 1024 : -i * 7;
        ASSERT_NE(memory.find(id), nullptr) << id;
        ASSERT_EQ(*memory.find(id), std::to_string(id));
    }
    EXPECT_EQ(memory.find(0), &first) << "references stay valid";
}

TEST(IdMemory, HoldsTheOutermostIds) {
    IdMemory<int> memory;
    memory.remember(2147483647, 1);
    memory.remember(-2147483647 - 1, 2);
    EXPECT_EQ(*memory.find(2147483647), 1);
    EXPECT_EQ(*memory.find(-2147483647 - 1), 2);
    EXPECT_EQ(memory.find(0), nullptr);
}

}  // namespace
}  // namespace prot
