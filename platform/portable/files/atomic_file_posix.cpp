#include "platform/portable/files/atomic_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <utility>

#include "platform/portable/files/folder_access.h"
#include "platform/portable/files/numbered_name.h"
#include "platform/portable/files/temporary_name.h"

namespace prot {

namespace {

namespace fs = std::filesystem;

std::error_code last_error() { return {errno, std::system_category()}; }

// /dev/stdout and its like lead to what a process has open, not to a place of its own.
bool is_system_link(const fs::path& link) {
    std::error_code ignored;
    const fs::path folder = fs::weakly_canonical(fs::absolute(link, ignored).parent_path(), ignored);
    return folder == "/dev" || path_text(folder).starts_with("/proc/");
}

struct Place {
    fs::path path;
    bool direct = false;  // written in place, never renamed over
};

// Where the bytes of `target` belong: at the end of its symbolic links, but that a link which is kept is a
// name like any other.
Place place_of(const fs::path& target, Existing existing) {
    std::error_code error;
    const fs::file_status status = fs::status(target, error);
    if (fs::is_directory(status) || !target.has_filename()) {
        throw file_error(target, std::make_error_code(std::errc::is_a_directory));
    }
    if (fs::exists(status) && !fs::is_regular_file(status)) return {target, true};

    constexpr int most_links = 40;
    fs::path path = target;
    for (int links = 0; fs::is_symlink(fs::symlink_status(path, error)); ++links) {
        if (is_system_link(path)) return {target, true};
        if (existing == Existing::kept) break;
        if (links == most_links) {
            throw file_error(target, std::make_error_code(std::errc::too_many_symbolic_link_levels));
        }
        path = path.parent_path() / fs::read_symlink(path, error);
    }
    return {path, false};
}

mode_t permissions_of_umask() {
    const mode_t mask = umask(0);
    umask(mask);
    return 0666 & ~mask;
}

int open_retried(const fs::path& path, int flags, mode_t mode) {
    int descriptor = -1;
    do {
        descriptor = ::open(path.c_str(), flags | O_CLOEXEC | O_NOCTTY, mode);
    } while (descriptor < 0 && errno == EINTR);
    return descriptor;
}

// Makes the renaming itself safe. Not every file system can; the file is in its place all the same.
void sync_folder(const fs::path& folder) {
    const int descriptor = open_retried(folder.empty() ? fs::path(".") : folder, O_RDONLY | O_DIRECTORY, 0);
    if (descriptor < 0) return;
    ::fsync(descriptor);
    ::close(descriptor);
}

// False, with the reason in errno, when `to` is taken (EEXIST) or for any other reason.
bool rename_onto_nothing(const fs::path& from, const fs::path& to) {
    if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return true;
    if (errno != EINVAL && errno != ENOSYS) return false;
    // File systems that cannot do that can link, most of them, and all of them can make a file that is new.
    if (::link(from.c_str(), to.c_str()) == 0) {
        ::unlink(from.c_str());
        return true;
    }
    if (errno == EEXIST) return false;
    const int descriptor = open_retried(to, O_WRONLY | O_CREAT | O_EXCL, 0600);
    if (descriptor < 0) return false;
    ::close(descriptor);
    return ::rename(from.c_str(), to.c_str()) == 0;
}

class PosixFile : public PendingFile {
public:
    PosixFile(const fs::path& target, Existing existing)
        : shown_(target), place_(place_of(target, existing)), existing_(existing), final_(target) {
        if (!place_.direct) temporary_ = temporary_name(place_.path);
    }
    ~PosixFile() override { PosixFile::discard(); }
    PosixFile(const PosixFile&) = delete;
    PosixFile& operator=(const PosixFile&) = delete;

    const fs::path& temporary_path() const override { return temporary_; }

    void create() override {
        if (place_.direct) {
            descriptor_ = open_retried(place_.path, O_WRONLY | O_APPEND, 0);
        } else {
            descriptor_ = open_retried(temporary_, O_WRONLY | O_CREAT | O_EXCL, 0600);
        }
        if (descriptor_ < 0) fail();
        made_ = !place_.direct;
        // Tells other programs that this one runs (see remove_if_free). Where there are no locks, that
        // remains unknown.
        if (made_) ::flock(descriptor_, LOCK_EX | LOCK_NB);
    }

    void write(std::string_view bytes) override {
        while (!bytes.empty()) {
            const ssize_t written = ::write(descriptor_, bytes.data(), bytes.size());
            if (written < 0 && errno == EINTR) continue;
            if (written < 0) fail();
            bytes.remove_prefix(static_cast<std::size_t>(written));
        }
    }

    void complete() override {
        if (made_ && ::fchmod(descriptor_, permissions_of_umask()) != 0) fail();
        if (made_ && ::fsync(descriptor_) != 0) fail();
        // After an interrupted close the descriptor is gone; closing again could hit another file.
        if (::close(std::exchange(descriptor_, -1)) != 0 && errno != EINTR) fail();
        if (!made_) return;
        if (!put_in_place()) fail();
        made_ = false;
        sync_folder(place_.path.parent_path());
    }

    const fs::path& place() const override { return final_; }

    void discard() noexcept override {
        if (descriptor_ >= 0) ::close(std::exchange(descriptor_, -1));
        if (std::exchange(made_, false)) ::unlink(temporary_.c_str());
    }

private:
    bool put_in_place() {
        if (existing_ == Existing::replaced) return ::rename(temporary_.c_str(), place_.path.c_str()) == 0;
        for (int number = 1; number <= most_numbered_names; ++number) {
            final_ = numbered_name(place_.path, number);
            if (rename_onto_nothing(temporary_, final_)) return true;
            if (errno != EEXIST) return false;
        }
        return false;
    }

    [[noreturn]] void fail() const { throw file_error(shown_, last_error()); }

    const fs::path shown_;
    const Place place_;
    const Existing existing_;
    fs::path final_;
    fs::path temporary_;
    int descriptor_ = -1;
    bool made_ = false;  // the temporary file exists
};

class PosixFiles : public FileLayer {
public:
    /// Whether a folder above forbids to see it.
    static bool is_hidden(const fs::path& folder) {
        std::error_code error;
        return fs::status(folder, error).type() == fs::file_type::none &&
               error == std::errc::permission_denied;
    }

    void make_folder(const fs::path& folder) override {
        std::error_code error;
        fs::create_directories(folder, error);
        if (error) throw is_hidden(folder) ? closed_folder_error(folder, error) : folder_error(folder, error);
        if ((error = folder_refusal(folder))) throw closed_folder_error(folder, error);
    }

    std::unique_ptr<PendingFile> prepare(const fs::path& target, Existing existing) override {
        return std::make_unique<PosixFile>(target, existing);
    }
};

}  // namespace

FileLayer& system_files() {
    static PosixFiles files;
    return files;
}

}  // namespace prot
