#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "platform/portable/csv/csv_file_writer.h"

namespace prot::fuzz {

/// Files that live in memory, each under a name of its own.
class MemoryFiles : public FileLayer {
public:
    std::map<std::string, std::string> finished;  ///< contents by path

    void make_folder(const std::filesystem::path&) override {}
    std::unique_ptr<PendingFile> prepare(const std::filesystem::path& target, Existing) override {
        return std::make_unique<Pending>(finished, target);
    }

private:
    class Pending : public PendingFile {
    public:
        Pending(std::map<std::string, std::string>& finished, std::filesystem::path target)
            : finished_(finished), target_(std::move(target)) {}

        const std::filesystem::path& temporary_path() const override { return temporary_; }
        void create() override {}
        void write(std::string_view bytes) override { bytes_ += bytes; }
        void complete() override { finished_[path_text(target_)] = std::move(bytes_); }
        const std::filesystem::path& place() const override { return target_; }
        void discard() noexcept override { bytes_.clear(); }

    private:
        std::map<std::string, std::string>& finished_;
        const std::filesystem::path target_;
        const std::filesystem::path temporary_;
        std::string bytes_;
    };
};

/// A host that takes every suggestion and remembers whether characters were replaced.
class SilentHost : public CsvFileHost {
public:
    bool replaced = false;

    std::optional<std::string> ask_file_name(const std::string&) override { return std::string(); }
    void unfinished_file(const std::string&) override {}
    void file_finished(const std::string&) override {}
    void characters_replaced(const std::string&, const ReplacedCharacters&) override { replaced = true; }
    void show_file(const std::string&) override {}
};

}  // namespace prot::fuzz
