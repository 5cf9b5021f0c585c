#include "platform/portable/files/paths.h"

namespace prot {

namespace fs = std::filesystem;

std::string path_text(const fs::path& path) { return path.native(); }

fs::path text_path(std::string_view text) { return {text}; }

bool is_absolute_path(const fs::path& path) { return path.is_absolute(); }

fs::path joined_path(const fs::path& folder, const fs::path& name) { return folder / name; }

fs::path shortest_path(const fs::path& path) { return path.lexically_normal(); }

fs::path absolute_path(const fs::path& path) { return fs::absolute(path); }

}  // namespace prot
