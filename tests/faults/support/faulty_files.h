#pragma once

#include <memory>
#include <system_error>
#include <utility>

#include "platform/portable/files/atomic_file.h"
#include "tests/faults/support/fault_plan.h"

namespace prot::faults {

/// Files of which each step may fail twice: before it has done anything, and with its work done (all of it,
/// or half of it when it writes).
class FaultyFiles : public FileLayer {
public:
    /// Both outlive the layer and its files.
    FaultyFiles(FileLayer& files, FaultPlan& plan) : files_(files), plan_(plan) {}

    void make_folder(const std::filesystem::path& folder) override {
        pass(folder);
        files_.make_folder(folder);
        pass(folder);
    }
    std::unique_ptr<PendingFile> prepare(const std::filesystem::path& target, Existing existing) override {
        pass(target);
        return std::make_unique<File>(*this, target, files_.prepare(target, existing));
    }

private:
    class File : public PendingFile {
    public:
        File(FaultyFiles& layer, std::filesystem::path target, std::unique_ptr<PendingFile> file)
            : layer_(layer), target_(std::move(target)), file_(std::move(file)) {}

        const std::filesystem::path& temporary_path() const override { return file_->temporary_path(); }
        void create() override {
            layer_.pass(target_);
            file_->create();
            layer_.pass(target_);
        }
        void write(std::string_view bytes) override {
            layer_.pass(target_);
            const std::size_t half = bytes.size() / 2;
            file_->write(bytes.substr(0, half));
            layer_.pass(target_);
            file_->write(bytes.substr(half));
        }
        void complete() override {
            layer_.pass(target_);
            file_->complete();
            layer_.pass(target_);
        }
        const std::filesystem::path& place() const override { return file_->place(); }
        void discard() noexcept override { file_->discard(); }

    private:
        FaultyFiles& layer_;
        const std::filesystem::path target_;
        std::unique_ptr<PendingFile> file_;
    };

    void pass(const std::filesystem::path& path) {
        if (plan_.fails()) throw file_error(path, std::make_error_code(std::errc::io_error));
    }

    FileLayer& files_;
    FaultPlan& plan_;
};

}  // namespace prot::faults
