#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/unit/platform/portable/csv/csv_file_writer_fixture.h"

namespace prot {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

using CsvFileWriterFailures = CsvFileWriterTest;

// Files that fail at the step of a given number, counted over create, write and complete, and from then on.
class FailingFiles : public FileLayer {
public:
    explicit FailingFiles(int failing_step) : steps_left_(failing_step) {}

    void make_folder(const fs::path& folder) override { system_files().make_folder(folder); }
    std::unique_ptr<PendingFile> prepare(const fs::path& target, Existing existing) override {
        return std::make_unique<File>(*this, target, existing);
    }
    bool failed() const { return steps_left_ < 0; }

private:
    class File : public PendingFile {
    public:
        File(FailingFiles& files, const fs::path& target, Existing existing)
            : files_(files), target_(target), file_(system_files().prepare(target, existing)) {}
        const fs::path& temporary_path() const override { return file_->temporary_path(); }
        void create() override { step(), file_->create(); }
        void write(std::string_view bytes) override { step(), file_->write(bytes); }
        void complete() override { step(), file_->complete(); }
        const fs::path& place() const override { return file_->place(); }
        void discard() noexcept override { file_->discard(); }

    private:
        void step() {
            if (--files_.steps_left_ < 0) throw file_error(target_, "abgezogen");
        }
        FailingFiles& files_;
        fs::path target_;
        std::unique_ptr<PendingFile> file_;
    };

    int steps_left_;
};

TEST_F(CsvFileWriterFailures, RefusesANameThatHoldsANul) {
    CsvFileWriter writer(options(), host);
    std::string name = "a\0.csv"s;
    EXPECT_THAT(error_of([&] { writer.open(name, false); }), HasSubstr("Nullzeichen"));
    EXPECT_EQ(folder.entries(), 0U);
}

TEST_F(CsvFileWriterFailures, RefusesAFolderForAFile) {
    CsvFileOptions inside = options();
    inside.folder = folder / "inside";  // so that ".." is the test's own folder, too
    CsvFileWriter writer(inside, host);
    fs::create_directories(inside.folder / "sub");
    for (std::string name : {"", ".", "..", "sub/"}) {
        EXPECT_THAT(error_of([&] { writer.open(name, false); }), HasSubstr("ist ein Ordner")) << name;
    }
    EXPECT_THAT(host.told, IsEmpty());
}

TEST_F(CsvFileWriterFailures, FailsAtOpenBelowAFile) {
    write_file(folder / "file", "whole");
    CsvFileOptions below = options();
    below.folder = folder / "file";
    CsvFileWriter writer(below, host);
    std::string name = "a.csv";
    EXPECT_THAT(error_of([&] { writer.open(name, false); }),
                StartsWith("Der Ordner „" + path_text(below.folder)));
    EXPECT_EQ(content_of(folder / "file"), "whole");
}

TEST_F(CsvFileWriterFailures, FailsAtOpenInAMissingFolderOfAnAbsoluteName) {
    CsvFileWriter writer(options(), host);
    std::string name = path_text(folder / "no" / "a.csv");
    EXPECT_THAT(error_of([&] { writer.open(name, false); }), HasSubstr(name));
    EXPECT_THAT(host.told, ElementsAre("unfinished file", "no unfinished file"));
}

TEST_F(CsvFileWriterFailures, NeedsAnOpenFile) {
    CsvFileWriter writer(options(), host);
    EXPECT_THAT(error_of([&] { write(writer, {"x"}); }), HasSubstr("nicht geöffnet"));
    EXPECT_THAT(error_of([&] { writer.close(); }), HasSubstr("nicht geöffnet"));
}

TEST_F(CsvFileWriterFailures, ForgetsTheEarlierFileWhenTheNextOneCannotBeOpened) {
    CsvFileWriter writer(options(), host);
    open(writer, "a.csv");
    writer.close();
    std::string name = "sub/b.csv";
    EXPECT_THAT(error_of([&] { writer.open(name, false); }), HasSubstr("der Ordner ist nicht vorhanden"));
    EXPECT_EQ(name, "sub/b.csv");
    host.told.clear();
    writer.show();
    EXPECT_THAT(host.told, IsEmpty());
    EXPECT_THAT(error_of([&] { write(writer, {"x"}); }), HasSubstr("b.csv"));
    EXPECT_EQ(content_of(folder / "a.csv"), "");
}

TEST_F(CsvFileWriterFailures, NamesNoEarlierFileWhenThePersonCancels) {
    CsvFileWriter writer(options(), host);
    open(writer, "a.csv");
    writer.close();
    std::string name = "b.csv";
    EXPECT_FALSE(writer.open(name, true));
    EXPECT_EQ(error_of([&] { writer.close(); }),
              "Die Datei „“ kann nicht geschrieben werden: sie ist nicht geöffnet.");
}

TEST_F(CsvFileWriterFailures, LeavesTheNameAsItWasWhenTheChosenFileCannotBeMade) {
    host.choice = "no/mine.csv";
    CsvFileWriter writer(options(), host);
    std::string name = "a.csv";
    EXPECT_THAT(error_of([&] { writer.open(name, true); }), HasSubstr("mine.csv"));
    EXPECT_EQ(name, "a.csv");
}

TEST_F(CsvFileWriterFailures, KeepsTheSourceOfAnErrorThatIsNotItsOwn) {
    struct FailingHost : RecordingHost {
        std::optional<std::string> ask_file_name(const std::string&) override {
            throw AutomationError(-7, "Fenster", "kein Fenster");
        }
    } failing;
    CsvFileWriter writer(options(), failing);
    std::string name = "a.csv";
    try {
        writer.open(name, true);
        ADD_FAILURE() << "no error";
    } catch (const AutomationError& error) {
        EXPECT_EQ(error.number(), -7);
        EXPECT_EQ(error.source(), "Fenster");
        EXPECT_EQ(error.description(), "kein Fenster");
    }
}

TEST_F(CsvFileWriterFailures, RemovesItsFileAlsoWhenTheHostCannotTakeTheNotice) {
    struct FailingHost : RecordingHost {
        void unfinished_file(const std::string& path) override {
            if (path.empty()) throw std::bad_alloc();
        }
    } failing;
    {
        CsvFileWriter writer(options(), failing);
        open(writer, "a.csv");
        EXPECT_EQ(folder.entries(), 1U);
    }
    EXPECT_EQ(folder.entries(), 0U);
}

TEST_F(CsvFileWriterFailures, LeavesTheEarlierFileWholeWhicheverStepFails) {
    host.choice = "";  // a name that a person takes is replaced
    const std::string big(300'000, 'x');
    for (int step = 0;; ++step) {
        write_file(folder / "a.csv", "earlier");
        FailingFiles files(step);
        CsvFileWriter writer(options(), host, files);
        std::string name = "a.csv";
        const std::string error = error_of([&] {
            writer.open(name, true);
            for (int line = 0; line < 3; ++line) write(writer, {big});
            writer.close();
        });
        if (!files.failed()) {
            EXPECT_EQ(step, 6) << "create, three full buffers, the rest, complete";
            break;
        }
        EXPECT_THAT(error, HasSubstr(path_text(folder / "a.csv"))) << step;
        EXPECT_EQ(content_of(folder / "a.csv"), "earlier") << step;
        EXPECT_EQ(folder.entries(), 1U) << step;
        EXPECT_EQ(host.told.back(), "no unfinished file") << step;
    }
    EXPECT_EQ(content_of(folder / "a.csv").size(), 3U * (big.size() + 2));
}

}  // namespace
}  // namespace prot
