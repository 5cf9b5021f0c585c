#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "platform/portable/files/atomic_file.h"
#include "tests/unit/support/temporary_folder.h"

namespace prot {

class AtomicFile : public testing::Test {
protected:
    void write_whole(const std::filesystem::path& target, const std::string& content) {
        const auto file = system_files().prepare(target);
        file->create();
        file->write(content);
        file->complete();
    }

    template <class Step>
    static std::string description_of(Step step) {
        try {
            step();
        } catch (const AutomationError& error) {
            EXPECT_EQ(error.number(), static_cast<std::int32_t>(ErrorNumber::file));
            return error.description();
        }
        return "no error";
    }

    TemporaryFolder folder;
};

}  // namespace prot
