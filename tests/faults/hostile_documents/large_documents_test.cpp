#include <sys/resource.h>
#include <sys/wait.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "tests/faults/support/whole_run.h"

/// Documents of a size that only memory bounds, through the built program as a process of its own.
namespace prot::faults {
namespace {

constexpr std::size_t mebibyte = 1 << 20;
constexpr std::size_t kept_pages = 8'000 * 1024;  // of the database, however large a document is

#ifdef PROT_SANITIZED
constexpr bool sanitized = true;  // every allocation is larger then, and freed memory is kept for a while
#else
constexpr bool sanitized = false;
#endif

/// A million; a fifth of it under the sanitizers, which look for other faults than size and take their time.
constexpr std::size_t many = sanitized ? 200'000 : 1'000'000;

std::string repeated(std::size_t times, const std::string& text) {
    std::string result;
    result.reserve(times * text.size());
    for (std::size_t i = 0; i < times; ++i) result += text;
    return result;
}

std::string one_value(const std::string& text) { return document_of("dzKursEURGeld", text, "2"); }

const std::string column = "<Col Name=\"dzKursEURGeld\"><OldValue>1</OldValue><NewValue>2</NewValue></Col>";

struct LargeDocument {
    const char* name;
    const char* why;
    std::string (*document)();
    std::size_t lines;  ///< of this record in the file
    bool readable;
    /// The bound of the peak beyond a run of the good records alone, as a multiple of the document. Five of
    /// it are the database's, which sorts the rows by date; the rest are the fetched row, the copy that is
    /// read, and what is found in it.
    double most_memory;
};

void PrintTo(const LargeDocument& large, std::ostream* out) { *out << large.why; }

// clang-format off
const LargeDocument large_documents[] = {
    {"Value", "one value of 100 MB is copied from the database to the file",
     [] { return one_value(std::string(100 * many, 'x')); }, 1, true, 8},
    {"QuotedValue", "100 MB of double quotes are 200 MB in the file",
     [] { return one_value(std::string(100 * many, '"')); }, 1, true, 8},
    {"References", "a reference of nine bytes is one character",
     [] { return one_value(repeated(5 * many, "&#x1F600;")); }, 1, true, 8},
    {"Columns", "a million columns are a million lines",
     [] { return "<Cols>" + repeated(many, column) + "</Cols>"; }, many, true, 8},
    {"EmptyColumns", "the smallest columns there are take the largest multiple",
     [] { return "<Cols>" + repeated(many, "<Col/>") + "</Cols>"; }, 0, true, 15},
    {"ColumnNames", "each name is looked up, and counted as one without caption",
     [] {
         std::string document = "<Cols>";
         for (std::size_t i = 0; i < 100000; ++i) document += "<Col Name=\"c" + std::to_string(i) + "\"/>";
         return document + "</Cols>";
     }, 0, true, 16},
    {"Depth", "a depth of a million does not use up the stack",
     [] { return one_value(repeated(many, "<a>") + repeated(many, "</a>")); }, 1, true, 8},
    {"DepthWithoutEnd", "nor does one that never ends",
     [] { return repeated(many, "<a>"); }, 0, false, 8},
    {"Attributes", "a million attributes of one element are compared with each other",
     [] {
         std::string document = "<Cols><Col";
         for (std::size_t i = 0; i < many; ++i) document += " a" + std::to_string(i) + "=\"\"";
         return document + "/></Cols>";
     }, 0, true, 8},
    {"SameAttributes", "a million attributes of one name are one too many",
     [] { return "<Cols><Col" + repeated(many, " a=\"\"") + "/></Cols>"; }, 0, false, 8},
    {"Comments", "comments part a value into a million pieces",
     [] { return one_value(repeated(many, "x<!---->")); }, 1, true, 8},
    {"Unclosed", "100 MB of a comment that does not end",
     [] { return "<Cols><!--" + std::string(100 * many, 'x'); }, 0, false, 8},
};
// clang-format on

struct Measured {
    int status = -1;
    double seconds = 0;    ///< of processor time, whatever else the machine does
    std::size_t peak = 0;  ///< bytes of resident memory
};

/// Runs `body` in a child process, whose exit status is what it returns, and measures it.
Measured in_child(const std::function<int()>& body) {
    const pid_t child = fork();
    if (child == 0) _exit(body());
    int status = 0;
    rusage usage{};
    Measured measured;
    if (wait4(child, &status, 0, &usage) == child && WIFEXITED(status)) measured.status = WEXITSTATUS(status);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    measured.seconds = seconds(usage.ru_utime) + seconds(usage.ru_stime);
    measured.peak = static_cast<std::size_t>(usage.ru_maxrss) * 1024;
    return measured;
}

class LargeDocuments : public WholeRun, public testing::WithParamInterface<LargeDocument> {
protected:
    LargeDocuments() {
        log.put(1, document_of("dzKursEURGeld", "0,93", "0,94"));
        log.put(3, document_of("dzKursFremdGeld", "5", "6"));
    }

    /// A batch export of everything by the built program.
    Measured export_all() const {
        const std::string command = "exec '" PROT_PROGRAM "' export --db '" + log.file().string() +
                                    "' --section 15 --params /autostart --out '" + out.string() + "' >'" +
                                    (folder / "stdout").string() + "' 2>'" + (folder / "stderr").string() +
                                    "'";
        return in_child([&] {
            execl("/bin/sh", "sh", "-c", command.c_str(), nullptr);
            return 127;
        });
    }

    std::string text_of(const std::filesystem::path& path) const {
        std::string text(std::filesystem::file_size(path), '\0');
        std::ifstream(path, std::ios::binary).read(text.data(), static_cast<std::streamsize>(text.size()));
        return text;
    }
};

TEST_P(LargeDocuments, AreExportedInBoundedMemoryAndTime) {
    const LargeDocument& large = GetParam();
    SCOPED_TRACE(large.why);
    const Measured alone = export_all();
    ASSERT_EQ(alone.status, 0);
    std::filesystem::remove_all(out);

    // Made by a child, because a process starts with the peak of the one that started it.
    ASSERT_EQ(in_child([&] { return log.put(2, large.document()), 0; }).status, 0);
    const auto size = static_cast<std::size_t>(
        log.number("SELECT LENGTH(CAST(dmData AS BLOB)) FROM tProtokoll WHERE idProtokoll = 2"));
    const Measured run = export_all();
    ASSERT_EQ(run.status, 0) << text_of(folder / "stderr");

    const std::size_t fixed = alone.peak + kept_pages;
    const double multiple =
        static_cast<double>(run.peak - std::min(run.peak, fixed)) / static_cast<double>(size);
    RecordProperty("multiple", std::to_string(multiple));
    RecordProperty("seconds", std::to_string(run.seconds));
    if (!sanitized) {
        EXPECT_LE(multiple, large.most_memory) << run.peak / mebibyte << " MiB";
    }
    EXPECT_LE(run.seconds, 30);

    const std::string written = text_of(std::filesystem::directory_iterator(out)->path());
    const std::string first = file_head() + line_of(1, "Kurs EUR (Geld)", "0,93", "0,94") + "\r\n";
    const std::string last = line_of(3, "Kurs fremd", "5", "6") + "\r\n";
    EXPECT_TRUE(written.starts_with(first));
    EXPECT_TRUE(written.ends_with(last));
    EXPECT_EQ(std::count(written.begin(), written.end(), '\n'), static_cast<std::ptrdiff_t>(4 + large.lines));
    const bool named =
        text_of(folder / "stderr").find("unlesbarem Änderungsdokument: 2\n") != std::string::npos;
    EXPECT_EQ(named, !large.readable);
}

INSTANTIATE_TEST_SUITE_P(Cases, LargeDocuments, testing::ValuesIn(large_documents),
                         [](const auto& large) { return large.param.name; });

}  // namespace
}  // namespace prot::faults
