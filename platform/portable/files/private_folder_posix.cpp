#include "platform/portable/files/private_folder.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "platform/portable/files/atomic_file.h"
#include "platform/portable/files/numbered_name.h"

namespace prot {

namespace {

namespace fs = std::filesystem;

std::error_code reason_of_failure() { return {errno, std::generic_category()}; }

void flush(const fs::path& path, int flags) {
    const int descriptor = ::open(path.c_str(), flags | O_RDONLY | O_CLOEXEC);
    if (descriptor < 0) throw file_error(path, reason_of_failure());
    const int result = ::fsync(descriptor);
    const std::error_code error = reason_of_failure();
    ::close(descriptor);
    // Some file systems cannot flush a folder by itself.
    if (result != 0 && error != std::errc::invalid_argument) throw file_error(path, error);
}

}  // namespace

fs::path make_private_folder(const fs::path& place) {
    for (int number = 1; number <= most_numbered_names; ++number) {
        const fs::path folder = numbered_name(place, number);
        if (::mkdir(folder.c_str(), S_IRWXU) == 0) {
            if (::chmod(folder.c_str(), S_IRWXU) != 0) throw folder_error(folder, reason_of_failure());
            return folder;
        }
        if (errno != EEXIST) throw folder_error(folder, reason_of_failure());
    }
    throw folder_error(place, std::make_error_code(std::errc::file_exists));
}

void make_private(const fs::path& file) {
    if (::chmod(file.c_str(), S_IRUSR | S_IWUSR) != 0) throw file_error(file, reason_of_failure());
}

bool is_private(const fs::path& file) {
    struct stat state {};
    return ::stat(file.c_str(), &state) == 0 && (state.st_mode & (S_IRWXG | S_IRWXO)) == 0;
}

void flush_file(const fs::path& file) { flush(file, 0); }

void flush_folder(const fs::path& folder) { flush(folder.empty() ? fs::path(".") : folder, O_DIRECTORY); }

}  // namespace prot
