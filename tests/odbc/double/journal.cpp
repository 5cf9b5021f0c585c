#include "tests/odbc/double/journal.h"

#include <algorithm>
#include <fstream>
#include <map>
#include <mutex>
#include <utility>

namespace prot::odbc_double {

namespace {

int next_connection(const std::string& path) {
    static std::mutex mutex;
    static std::map<std::string, int> connections;
    const std::lock_guard lock(mutex);
    return ++connections[path];
}

}  // namespace

std::string one_line(std::string_view text) {
    std::string line(text);
    std::ranges::replace_if(
        line, [](char c) { return c == '\r' || c == '\n' || c == '\t'; }, ' ');
    return line;
}

Journal::Journal(std::string path) : path_(std::move(path)) {
    if (!path_.empty()) connection_ = next_connection(path_);
}

void Journal::write(std::string_view line) const {
    if (path_.empty()) return;
    std::ofstream(path_, std::ios::app) << connection_ << ": " << line << '\n';
}

}  // namespace prot::odbc_double
