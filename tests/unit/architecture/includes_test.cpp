#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <span>
#include <string>
#include <vector>

/// Includes point downwards only; this is what keeps one core behind two faces.
namespace {

namespace fs = std::filesystem;

/// A folder and the folders whose headers it may include.
struct Layer {
    std::string folder;
    std::vector<std::string> may_include;
    bool third_party;  // libraries and system headers
};

/// Longest folder first. Sections never include each other: each folder of theirs is a layer of its own.
std::vector<Layer> all_layers(const fs::path& root) {
    std::vector<Layer> layers = {
        {"platform/automation/", {"platform/automation/"}, false},
        {"platform/portable/", {"platform/portable/", "platform/"}, true},
        {"platform/windows/", {"platform/windows/", "platform/"}, true},
        {"platform/", {"platform/"}, false},
        {"core/", {"core/", "platform/"}, false},
    };
    for (const auto& entry : fs::directory_iterator(root / "sections")) {
        if (!entry.is_directory()) continue;
        const std::string folder = "sections/" + entry.path().filename().string() + "/";
        layers.push_back({folder, {folder, "core/", "platform/"}, false});
    }
    layers.push_back({"sections/", {"sections/", "core/", "platform/"}, false});
    layers.push_back({"apps/", {"apps/", "sections/", "core/", "platform/"}, true});
    return layers;
}

const std::vector<Layer> layers = all_layers(PROT_SOURCE_DIR);

constexpr auto standard_headers = std::to_array<std::string_view>({"algorithm",
                                                                   "array",
                                                                   "atomic",
                                                                   "charconv",
                                                                   "chrono",
                                                                   "cmath",
                                                                   "compare",
                                                                   "cstddef",
                                                                   "cstdint",
                                                                   "cstdio",
                                                                   "cstdlib",
                                                                   "cstring",
                                                                   "deque",
                                                                   "exception",
                                                                   "filesystem",
                                                                   "functional",
                                                                   "initializer_list",
                                                                   "iterator",
                                                                   "limits",
                                                                   "list",
                                                                   "map",
                                                                   "memory",
                                                                   "new",
                                                                   "numeric",
                                                                   "optional",
                                                                   "set",
                                                                   "span",
                                                                   "sstream",
                                                                   "stdexcept",
                                                                   "string",
                                                                   "string_view",
                                                                   "system_error",
                                                                   "tuple",
                                                                   "type_traits",
                                                                   "unordered_map",
                                                                   "unordered_set",
                                                                   "utility",
                                                                   "variant",
                                                                   "vector"});

struct Include {
    std::string file, header;
    bool angled;
};

/// A header that widl makes belongs to the folder of the file that it is made from.
std::map<std::string, std::string> generated_headers(const fs::path& root) {
    std::map<std::string, std::string> headers;
    for (const char* top : {"platform", "apps"}) {
        for (const auto& entry : fs::recursive_directory_iterator(root / top)) {
            if (entry.path().extension() != ".idl") continue;
            const std::string header = entry.path().stem().string() + ".h";
            headers[header] = (fs::relative(entry.path().parent_path(), root) / header).generic_string();
        }
    }
    return headers;
}

std::vector<Include> includes_below(const fs::path& root, const char* top) {
    static const std::regex pattern("^\\s*#\\s*include\\s*([<\"])([^>\"]+)[>\"]");
    const std::map<std::string, std::string> generated = generated_headers(root);
    std::vector<Include> includes;
    for (const auto& entry : fs::recursive_directory_iterator(root / top)) {
        const std::string extension = entry.path().extension().string();
        if (extension != ".h" && extension != ".cpp") continue;
        std::ifstream file(entry.path());
        for (std::string line; std::getline(file, line);) {
            std::smatch match;
            if (!std::regex_search(line, match, pattern)) continue;
            const std::string name = fs::relative(entry.path(), root).generic_string();
            if (const auto made = generated.find(match[2]); made != generated.end())
                includes.push_back({name, made->second, false});
            else
                includes.push_back({name, match[2], match[1] == "<"});
        }
    }
    return includes;
}

const Layer& layer_of(const std::string& file) {
    return *std::ranges::find_if(layers, [&](const Layer& layer) { return file.starts_with(layer.folder); });
}

/// The folder of a header that implements the platform; such folders lie in platform/ without being part of
/// it.
std::string_view implementation_folder(const std::string& header) {
    for (const std::string_view folder : {"platform/portable/", "platform/windows/"})
        if (header.starts_with(folder)) return folder;
    return {};
}

bool allowed(const Include& include) {
    const Layer& layer = layer_of(include.file);
    if (include.angled)
        return layer.third_party ||
               std::ranges::find(standard_headers, include.header) != standard_headers.end();
    const std::string_view implementation = implementation_folder(include.header);
    if (!implementation.empty() && layer.folder != "apps/" && layer.folder != implementation) return false;
    if (layer.folder != "sections/" && layer.folder != "apps/" && include.header.starts_with("sections/") &&
        !include.header.starts_with(layer.folder))
        return false;
    return std::ranges::any_of(layer.may_include,
                               [&](std::string_view folder) { return include.header.starts_with(folder); });
}

TEST(Architecture, IncludesPointDownwards) {
    std::size_t checked = 0;
    for (const char* top : {"platform", "core", "sections", "apps"}) {
        for (const Include& include : includes_below(PROT_SOURCE_DIR, top)) {
            ++checked;
            EXPECT_TRUE(allowed(include)) << include.file << " must not include " << include.header;
        }
    }
    EXPECT_GT(checked, 100U);
}

TEST(Architecture, GeneratedHeadersBelongToTheFolderOfTheirDefinition) {
    const std::map<std::string, std::string> headers = generated_headers(PROT_SOURCE_DIR);
    EXPECT_EQ(headers.at("prot_database.h"), "platform/windows/host/prot_database.h");
    EXPECT_EQ(headers.at("srvprotqrbcsv.h"), "apps/srvprotqrbcsv/srvprotqrbcsv.h");
    const auto includes = includes_below(PROT_SOURCE_DIR, "platform");
    EXPECT_TRUE(std::ranges::any_of(includes, [](const Include& include) {
        return include.file == "platform/windows/host/database_object.cpp" &&
               include.header == "platform/windows/host/prot_database.h" && !include.angled;
    }));
}

TEST(Architecture, TheCheckKnowsWhatIsForbidden) {
    const Include rows[] = {
        {"core/run.h", "sections/exchange_rates/CProtDevCsv.h", false},
        {"core/run.h", "platform/portable/sqlite/sqlite_database.h", false},
        {"core/run.h", "sqlite3.h", true},
        {"platform/database.h", "core/run.h", false},
        {"platform/database.h", "platform/portable/terminal/terminal.h", false},
        {"platform/portable/terminal/terminal.h", "core/run.h", false},
        {"platform/portable/terminal/terminal.h", "platform/windows/forms/form_view.h", false},
        {"platform/windows/host/database_object.cpp", "apps/srvprotqrbcsv/srvprotqrbcsv.h", false},
        {"sections/exchange_rates/rate_lines.h", "sections/open_items/lines.h", false},
        {"sections/exchange_rates/rate_lines.h", "sections/section_table.h", false},
        {"sections/exchange_rates/rate_lines.h", "apps/protcsv/options/options.h", false},
        {"sections/section_table.cpp", "windows.h", true},
    };
    for (const Include& include : rows)
        EXPECT_FALSE(allowed(include)) << include.file << " " << include.header;
}

TEST(Architecture, FilesStayReadable) {
    for (const char* top : {"platform", "core", "sections", "apps"}) {
        for (const auto& entry : fs::recursive_directory_iterator(fs::path(PROT_SOURCE_DIR) / top)) {
            if (!entry.is_regular_file()) continue;
            std::ifstream file(entry.path());
            const auto lines = std::count(std::istreambuf_iterator<char>(file), {}, '\n');
            EXPECT_LE(lines, 400) << entry.path() << " asks to be two files";
        }
    }
}

}  // namespace
