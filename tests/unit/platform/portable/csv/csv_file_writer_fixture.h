#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "platform/portable/csv/csv_file_writer.h"
#include "tests/unit/support/temporary_folder.h"

namespace prot {

/// Answers from a fixed choice and writes down what it is told.
struct RecordingHost : CsvFileHost {
    std::optional<std::string> choice;
    std::vector<std::string> told;

    std::optional<std::string> ask_file_name(const std::string& suggestion) override {
        told.push_back("ask " + suggestion);
        return choice;
    }
    void unfinished_file(const std::string& path) override {
        EXPECT_FALSE(std::filesystem::exists(text_path(last_unfinished))) << "told after the removal";
        EXPECT_FALSE(std::filesystem::exists(text_path(path))) << "told before the file is made";
        told.push_back(path.empty() ? "no unfinished file" : "unfinished file");
        last_unfinished = path;
    }
    void file_finished(const std::string& path) override {
        EXPECT_TRUE(std::filesystem::exists(text_path(path))) << path;
        told.push_back("finished " + path);
    }
    void characters_replaced(const std::string& path, const ReplacedCharacters& characters) override {
        told.push_back("replaced " + path);
        replaced = characters;
    }
    void file_begins() override { bytes.clear(); }
    void bytes_written(std::string_view more) override { bytes += more; }
    void show_file(const std::string& path) override { told.push_back("show " + path); }

    std::string last_unfinished;
    ReplacedCharacters replaced;
    std::string bytes;  // of the last file
};

class CsvFileWriterTest : public testing::Test {
protected:
    CsvFileOptions options(CsvEncoding encoding = CsvEncoding::utf8) const {
        CsvFileOptions result;
        result.folder = folder.path();
        result.encoding = encoding;
        return result;
    }

    static void write(CsvWriter& writer, const std::vector<std::string>& cells) { writer.write_line(cells); }

    static std::string open(CsvWriter& writer, std::string name, bool ask_user = false) {
        EXPECT_TRUE(writer.open(name, ask_user));
        return name;
    }

    template <class Step>
    static std::string error_of(Step step) {
        try {
            step();
        } catch (const AutomationError& error) {
            EXPECT_EQ(error.number(), static_cast<std::int32_t>(ErrorNumber::file));
            EXPECT_EQ(error.source(), "CsvFileWriter");
            return error.description();
        }
        return "no error";
    }

    TemporaryFolder folder;
    RecordingHost host;
};

}  // namespace prot
