#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace prot::test {

/// An empty folder for batch files, named to the server by the environment as long as this lives; then it is
/// removed and the name that was there before is back.
class OutputFolder {
public:
    OutputFolder();
    ~OutputFolder();
    OutputFolder(const OutputFolder&) = delete;
    OutputFolder& operator=(const OutputFolder&) = delete;

    /// Names of all files in it, unfinished ones too.
    std::vector<std::string> files() const;
    /// The bytes of the only file; a sentence that says otherwise when there is not exactly one.
    std::string only_file() const;
    void remove_files();

private:
    std::filesystem::path path_;
    std::string before_;
};

}  // namespace prot::test
