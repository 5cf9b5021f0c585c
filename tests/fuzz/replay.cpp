#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

std::vector<std::filesystem::path> inputs_in(const char* folder) {
    std::vector<std::filesystem::path> inputs;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(folder, error))
        if (entry.is_regular_file()) inputs.push_back(entry.path());
    std::sort(inputs.begin(), inputs.end());
    return inputs;
}

std::string bytes_of(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

/// Feeds every file of a folder to the fuzzer that this program is linked with. The name of a file is printed
/// before its turn, so that the last one printed is the one that ended the program.
int main(int count, char** arguments) {
    if (count != 2) {
        std::fprintf(stderr, "usage: %s CORPUS\n", arguments[0]);
        return 2;
    }
    const auto inputs = inputs_in(arguments[1]);
    if (inputs.empty()) {
        std::fprintf(stderr, "no inputs in %s\n", arguments[1]);
        return 1;
    }
    for (const auto& input : inputs) {
        std::printf("%s\n", input.c_str());
        std::fflush(stdout);
        const std::string bytes = bytes_of(input);
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    }
    return 0;
}
