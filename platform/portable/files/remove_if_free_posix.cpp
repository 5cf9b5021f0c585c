#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/portable/files/remove_if_free.h"

namespace prot {

void remove_if_free(const std::filesystem::path& file) {
    const int descriptor = ::open(file.c_str(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0) return;
    struct stat held {};
    struct stat named {};
    // What was opened may have got its own name meanwhile, and another file this one.
    if (::flock(descriptor, LOCK_EX | LOCK_NB) == 0 && ::fstat(descriptor, &held) == 0 &&
        ::lstat(file.c_str(), &named) == 0 && held.st_ino == named.st_ino && held.st_dev == named.st_dev &&
        held.st_uid == ::geteuid())
        ::unlink(file.c_str());
    ::close(descriptor);
}

}  // namespace prot
