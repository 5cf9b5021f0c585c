#include "apps/protcsv/host.h"

#include <csignal>
#include <cstdlib>
#include <sstream>

#include <gtest/gtest.h>

#include "apps/protcsv/console/interruption.h"
#include "apps/protcsv/displays/line_displays.h"
#include "tests/unit/support/temporary_folder.h"

namespace prot {
namespace {

TEST(HostPosix, LeavesNoHalfFileWhenTheProgramIsStoppedButAFinishedOne) {
    const TemporaryFolder folder;
    const struct {
        bool finished;
        std::size_t files;
        const char* why;
    } rows[] = {{false, 0, "half a file"}, {true, 1, "a finished file"}};
    for (const auto& row : rows) {
        EXPECT_EXIT(
            {
                std::signal(SIGTERM, SIG_DFL);
                handle_interruptions();
                std::ostringstream output;
                TerminalSettings settings;
                settings.output = &output;
                Terminal terminal(settings);
                TerminalMessageBoxes boxes(terminal, false);
                LineDisplays displays({terminal, boxes});
                Options options;
                options.csv.folder = folder.path();
                RunAccount account;
                Host host(options, displays, account);
                const auto writer = host.create_csv_writer();
                std::string name = "Prot.csv";
                writer->open(name, false);
                if (row.finished) writer->close();
                std::raise(SIGTERM);
                std::_Exit(0);
            },
            testing::ExitedWithCode(128 + SIGTERM), "")
            << row.why;
        EXPECT_EQ(folder.entries(), row.files) << row.why;
    }
}

}  // namespace
}  // namespace prot
