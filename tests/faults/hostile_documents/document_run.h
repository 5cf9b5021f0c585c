#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tests/faults/support/whole_run.h"

namespace prot::faults {

struct Change {
    std::string old_value, new_value;  ///< as they stand in the file, quotes included
};

/// What one document has to come to: its changed column dzKursEURGeld, each time it occurs; nothing when the
/// document does not load.
struct DocumentCase {
    const char* why;
    std::string document;
    std::optional<std::vector<Change>> lines;
};

inline const std::optional<std::vector<Change>> unreadable = std::nullopt;

/// A log of three records: a good one, the one under test, a good one.
class DocumentRun : public WholeRun {
protected:
    DocumentRun() {
        log.put(1, document_of("dzKursEURGeld", "0,93", "0,94"));
        log.put(3, document_of("dzKursFremdGeld", "5", "6"));
    }

    /// Exports the whole log; the file holds the good records and what the case says, and the report names
    /// the record when it does not load, and says nothing else.
    void check(const DocumentCase& expected) {
        SCOPED_TRACE(expected.why);
        log.put(2, expected.document);
        WholeProgram program = exporting();
        ASSERT_EQ(program.run(section_table()), 0) << program.errors();
        std::string lines = file_head() + line_of(1, "Kurs EUR (Geld)", "0,93", "0,94") + "\r\n";
        for (const Change& change : expected.lines.value_or(std::vector<Change>()))
            lines += line_of(2, "Kurs EUR (Geld)", change.old_value, change.new_value) + "\r\n";
        EXPECT_EQ(file(), lines + line_of(3, "Kurs fremd", "5", "6") + "\r\n");
        EXPECT_EQ(notices(program.errors()),
                  expected.lines ? "" : "1 Protokollsatz mit unlesbarem Änderungsdokument: 2\n");
        EXPECT_EQ(files_in_out(), 1);
    }

    /// What stands on standard error between the questions with their answers and the closing line.
    static std::string notices(const std::string& errors) {
        const std::size_t begin = errors.find('\n', errors.find("Dateiname [")) + 1;
        const std::size_t end = errors.rfind('\n', errors.size() - 2) + 1;
        EXPECT_NE(errors.find(" gelesen, ", end), std::string::npos) << errors;
        return errors.substr(begin, end - begin);
    }
};

}  // namespace prot::faults
