#pragma once

#include <iosfwd>

#include "platform/portable/files/atomic_file.h"

namespace prot {

/// Files that all go to standard output. What has gone there cannot be taken back.
class StreamFiles : public FileLayer {
public:
    /// The stream outlives it and its files.
    explicit StreamFiles(std::ostream& stream) : stream_(stream) {}

    void make_folder(const std::filesystem::path& /*folder*/) override {}
    std::unique_ptr<PendingFile> prepare(const std::filesystem::path& target, Existing existing) override;

private:
    std::ostream& stream_;
};

}  // namespace prot
