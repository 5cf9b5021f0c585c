#include <sqlite3.h>
#include <sys/wait.h>

#include <nlohmann/json.hpp>
#include <vector>

#include "tests/faults/support/faulty_vfs.h"
#include "tests/faults/support/file_size_limit.h"
#include "tests/faults/support/whole_run.h"

/// A deletion with an archive is disturbed at each access to a file of SQLite's, the archive's own among
/// them. Whatever happens, what is gone from the log is whole in an archive.
namespace prot::faults {
namespace {

namespace fs = std::filesystem;

// The sanitizers watch the same code at some of the accesses.
#ifdef PROT_SANITIZED
constexpr std::size_t step = 7;
#else
constexpr std::size_t step = 1;
#endif

/// Every row of a table, value by value as SQL writes it; empty where there is no such table.
std::string dump(const fs::path& file, const std::string& table, const std::string& order) {
    std::string text;
    sqlite3* database = nullptr;
    sqlite3_stmt* rows = nullptr;
    sqlite3_open_v2(file.c_str(), &database, SQLITE_OPEN_READWRITE, nullptr);
    const std::string sql = "SELECT * FROM " + table + " ORDER BY " + order;
    if (sqlite3_prepare_v2(database, sql.c_str(), -1, &rows, nullptr) == SQLITE_OK)
        while (sqlite3_step(rows) == SQLITE_ROW) {
            for (int column = 0; column < sqlite3_column_count(rows); ++column) {
                const unsigned char* value = sqlite3_column_text(rows, column);
                text += std::to_string(sqlite3_column_type(rows, column)) + ":" +
                        (value ? reinterpret_cast<const char*>(value) : "NULL") + "|";
            }
            text += "\n";
        }
    sqlite3_finalize(rows);
    sqlite3_close(database);
    return text;
}

class ArchiveFaults : public WholeRun {
protected:
    ArchiveFaults() {
        fill_with_story(log);
        records_before_ = records_in(log.file());
        memos_before_ = memos_in(log.file());
        fs::copy_file(log.file(), before());
    }
    fs::path before() const { return folder / "before.db"; }

    WholeProgram archiving() const {
        return WholeProgram({"delete", "--db", log.file().string(), "--section", "15", "--from", "2026-01-01",
                             "--params", "/autostart", "--yes", "--archive", archives().string()});
    }

    void fill_again() {
        fs::remove(log.file().string() + "-journal");
        fs::copy_file(before(), log.file(), fs::copy_options::overwrite_existing);
        fs::remove_all(archives());
    }

    static std::string records_in(const fs::path& file) { return dump(file, "tProtokoll", "idProtokoll"); }
    static std::string memos_in(const fs::path& file) {
        return dump(file, "tProtokollMemo", "idProtokollMemo");
    }
    fs::path archives() const { return folder / "archive"; }

    std::vector<fs::path> archive_folders() const {
        std::vector<fs::path> folders;
        if (fs::exists(archives()))
            for (const auto& entry : fs::directory_iterator(archives())) folders.push_back(entry.path());
        return folders;
    }

    /// The state that the only receipt tells; empty: there is no receipt.
    std::string receipt_state() const {
        for (const fs::path& archive : archive_folders()) {
            std::ifstream file(archive / "beleg.json");
            if (file) return nlohmann::json::parse(file).at("deletion").at("state");
        }
        return {};
    }

    bool nothing_went() const {
        return records_in(log.file()) == records_before_ && memos_in(log.file()) == memos_before_;
    }

    void expect_all_in_the_archive() const {
        EXPECT_EQ(records_in(log.file()), "");
        EXPECT_EQ(memos_in(log.file()), "");
        const std::vector<fs::path> folders = archive_folders();
        ASSERT_EQ(folders.size(), 1u);
        EXPECT_EQ(records_in(folders[0] / "archiv.db"), records_before_);
        EXPECT_EQ(memos_in(folders[0] / "archiv.db"), memos_before_);
    }

    std::string records_before_, memos_before_;
};

TEST_F(ArchiveFaults, EachFailedAccessLeavesTheLogOrTheWholeArchive) {
    WholeProgram program = archiving();
    for (const Failing failing : {Failing::once, Failing::from_then_on})
        for (std::size_t nth = 1;; nth += step) {
            SCOPED_TRACE("access " + std::to_string(nth));
            fill_again();
            FaultPlan plan(nth, failing);
            int status = 0;
            {
                const FaultyVfs vfs(plan);
                status = program.run(section_table());
            }
            if (status == 0) {
                expect_all_in_the_archive();
                EXPECT_EQ(receipt_state(), "deleted");
            } else if (receipt_state() == "unknown") {
                EXPECT_TRUE(nothing_went() || records_in(log.file()).empty());
                EXPECT_NE(program.errors().find("nicht bekannt"), std::string::npos) << program.errors();
            } else {
                EXPECT_EQ(status, 1) << program.errors();
                EXPECT_TRUE(nothing_went()) << program.errors();
                EXPECT_TRUE(archive_folders().empty()) << program.errors();
                EXPECT_TRUE(tells_what_failed(program.errors())) << program.errors();
            }
            EXPECT_EQ(log.text("PRAGMA integrity_check"), "ok");
            if (!plan.reached()) {
                EXPECT_EQ(status, 0) << program.errors();
                EXPECT_GE(nth, 150u);
                break;
            }
            if (HasFailure()) return;
        }
}

TEST_F(ArchiveFaults, AKillAtAnyAccessLeavesTheLogOrTheWholeArchive) {
    WholeProgram program = archiving();
    std::size_t killed_behind_the_commit = 0;
    for (std::size_t nth = 1;; nth += step) {
        SCOPED_TRACE("access " + std::to_string(nth));
        fill_again();
        const pid_t child = fork();
        if (child == 0) {
            FaultPlan plan(nth, Failing::by_a_kill);
            const FaultyVfs vfs(plan);
            _exit(program.run(section_table()));
        }
        int ending = 0;
        ASSERT_EQ(waitpid(child, &ending, 0), child);
        if (!nothing_went()) {
            expect_all_in_the_archive();
            const std::string state = receipt_state();
            EXPECT_TRUE(state == "archived" || state == "deleted") << state;
            if (WIFSIGNALED(ending)) ++killed_behind_the_commit;
        }
        EXPECT_EQ(log.text("PRAGMA integrity_check"), "ok");
        if (HasFailure()) return;
        if (WIFSIGNALED(ending)) continue;
        EXPECT_EQ(WEXITSTATUS(ending), 0);
        EXPECT_GE(nth, 150u);
        break;
    }
    EXPECT_LE(killed_behind_the_commit, 5u);
}

TEST_F(ArchiveFaults, ADiskThatIsFullLeavesTheLogAndNoArchive) {
    WholeProgram program = archiving();
    const FileSizeLimit limit(4096);
    EXPECT_EQ(program.run(section_table()), 1);
    EXPECT_TRUE(nothing_went());
    EXPECT_TRUE(archive_folders().empty());
    EXPECT_TRUE(tells_what_failed(program.errors())) << program.errors();
}

}  // namespace
}  // namespace prot::faults
