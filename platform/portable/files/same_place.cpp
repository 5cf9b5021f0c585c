#include "platform/portable/files/same_place.h"

#include <system_error>

#include "platform/portable/files/paths.h"

namespace prot {

namespace {

std::filesystem::path place_of(const std::filesystem::path& path) {
    std::error_code error;
    const std::filesystem::path place = std::filesystem::weakly_canonical(absolute_path(path), error);
    return error ? shortest_path(absolute_path(path)) : place;
}

}  // namespace

bool is_same_place(const std::filesystem::path& one, const std::filesystem::path& other) {
    if (one.empty() || other.empty()) return false;
    std::error_code error;
    if (std::filesystem::equivalent(one, other, error)) return true;
    return place_of(one) == place_of(other);
}

}  // namespace prot
