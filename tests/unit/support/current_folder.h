#pragma once

#include <filesystem>

namespace prot {

/// Makes a folder the current one while it lives.
class CurrentFolder {
public:
    explicit CurrentFolder(const std::filesystem::path& folder) { std::filesystem::current_path(folder); }
    ~CurrentFolder() { std::filesystem::current_path(before_); }
    CurrentFolder(const CurrentFolder&) = delete;
    CurrentFolder& operator=(const CurrentFolder&) = delete;

private:
    const std::filesystem::path before_ = std::filesystem::current_path();
};

}  // namespace prot
