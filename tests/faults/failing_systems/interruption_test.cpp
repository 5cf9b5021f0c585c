#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>

#include <chrono>
#include <csignal>
#include <optional>
#include <thread>
#include <vector>

#include "tests/faults/support/whole_run.h"

extern char** environ;

/// The finished program is stopped from outside while it reads and writes.
namespace prot::faults {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

class Interruption : public WholeRun {
protected:
    /// Starts an export of the log without questions, and stops it after `delay`. Its exit status;
    /// before_main when it was not yet there to take the signal.
    int status_of_stopped_run(const std::string& threads, int signal, Clock::duration delay) {
        const pid_t process = start(threads);
        std::this_thread::sleep_for(delay);
        const Clock::time_point stopped = Clock::now();
        kill(process, signal);
        int status = 0;
        while (waitpid(process, &status, WNOHANG) == 0) {
            if (Clock::now() - stopped > 20s) {
                kill(process, SIGKILL);
                waitpid(process, &status, 0);
                ADD_FAILURE() << "it did not end";
                break;
            }
            std::this_thread::sleep_for(1ms);
        }
        EXPECT_LT(Clock::now() - stopped, 1s);
        return WIFEXITED(status) ? WEXITSTATUS(status) : before_main;
    }

    static constexpr int before_main = -1;

    std::vector<std::string> files() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(out))
            names.push_back(entry.path().filename());
        return names;
    }

private:
    pid_t start(const std::string& threads) {
        std::vector<std::string> arguments = {
            PROT_PROGRAM, "export", "--db",       log.file().string(), "--section", "15",     "--params",
            "/autostart", "--out",  out.string(), "--threads",         threads,     "--quiet"};
        std::vector<char*> pointers;
        for (std::string& argument : arguments) pointers.push_back(argument.data());
        pointers.push_back(nullptr);
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
        // Whatever this test's own caller ignores.
        posix_spawnattr_t attributes;
        posix_spawnattr_init(&attributes);
        sigset_t signals;
        sigfillset(&signals);
        posix_spawnattr_setsigdefault(&attributes, &signals);
        posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF);
        pid_t process = 0;
        EXPECT_EQ(posix_spawn(&process, PROT_PROGRAM, &actions, &attributes, pointers.data(), environ), 0);
        posix_spawnattr_destroy(&attributes);
        posix_spawn_file_actions_destroy(&actions);
        return process;
    }
};

TEST_F(Interruption, EndsARunAtAnyPointWithoutAFile) {
    log.run("DELETE FROM tProtokoll");
    fill_with_long_story(log);
    log.run(
        "INSERT INTO tProtokoll SELECT idProtokoll + 10000 * n, dcTable, dcWorkstation, dcUser, ddDatum, "
        "dlEvent, "
        "dmData, dcSystemUser, dcApplication, dlPrimaryKey1, dlSuchId1, dlSuchId2, dlSuchId3, dlSuchId4"
        " FROM tProtokoll, (WITH RECURSIVE n(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM n WHERE n < 60) "
        "SELECT n FROM n)");
    int stopped = 0;
    for (const char* const threads : {"1", "2"})
        for (int milliseconds = 0; milliseconds < 200; milliseconds += 20) {
            SCOPED_TRACE(std::string(threads) + " threads, " + std::to_string(milliseconds) + " ms");
            const int status = status_of_stopped_run(threads, SIGINT, milliseconds * 1ms);
            if (status == before_main) continue;
            if (status == 0) break;  // done before
            EXPECT_EQ(status, 130);
            EXPECT_TRUE(files().empty());
            ++stopped;
        }
    EXPECT_GT(stopped, 0);
}

TEST_F(Interruption, EndsARunThatWaitsForItsDatabase) {
    const char* const endless =
        "(WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) SELECT count(*) FROM n) > 0";
    fill_with_long_story(log);
    log.run("ALTER TABLE tProtokoll RENAME TO records");
    for (const char* const rows : {"0", "600"}) {
        log.run(std::string("DROP VIEW IF EXISTS tProtokoll;"
                            "CREATE VIEW tProtokoll AS SELECT * FROM records WHERE idProtokoll < ") +
                rows + " OR " + endless);
        for (const char* const threads : {"1", "2"})
            for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
                SCOPED_TRACE(std::string(rows) + " rows, " + threads + " threads, signal " +
                             std::to_string(signal));
                int status = before_main;
                for (auto delay = 100ms; status == before_main && delay < 10s; delay *= 2)
                    status = status_of_stopped_run(threads, signal, delay);
                EXPECT_EQ(status, 128 + signal);
                EXPECT_TRUE(files().empty());
            }
    }
}

}  // namespace
}  // namespace prot::faults
