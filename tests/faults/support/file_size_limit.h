#pragma once

#include <sys/resource.h>

#include <csignal>
#include <cstddef>

namespace prot::faults {

/// A limit of the process on the size of files, while it lives: the system writes up to it and then refuses.
class FileSizeLimit {
public:
    explicit FileSizeLimit(std::size_t bytes) {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit limit{bytes, before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() { setrlimit(RLIMIT_FSIZE, &before_); }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    rlimit before_{};
};

}  // namespace prot::faults
