#include "platform/portable/files/program_folder.h"

#include <gtest/gtest.h>

namespace prot {
namespace {

TEST(ProgramFolder, IsWhereTheRunningProgramLies) {
    bool found = false;
    for (const auto& entry : std::filesystem::directory_iterator(program_folder()))
        found |= entry.path().stem() == "platform_portable_test";
    EXPECT_TRUE(found) << program_folder();
}

}  // namespace
}  // namespace prot
