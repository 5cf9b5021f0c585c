#include "apps/protcsv/program.h"

#include <csignal>
#include <cstdlib>

#include <gtest/gtest.h>

namespace prot {
namespace {

int run_with(std::string argument) {
    std::string program = "protcsv";
    char* arguments[] = {program.data(), argument.data(), nullptr};
    return run_program(2, arguments);
}

TEST(ProgramPosix, InstallsItsHandlersAndReadsTheArgumentsOfMain) {
    EXPECT_EXIT(
        {
            std::signal(SIGTERM, SIG_DFL);
            if (run_with("exprot") == 2) std::raise(SIGTERM);
            std::_Exit(0);
        },
        testing::ExitedWithCode(128 + SIGTERM), "protcsv: „exprot“ ist kein Befehl");
}

}  // namespace
}  // namespace prot
