#include "tests/unit/platform/portable/files/system_calls.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <cstdint>
#include <limits>

namespace prot {

namespace {

struct Failure {
    std::string name;
    int error;
    int calls_left;
};

struct State {
    std::vector<SystemCalls::Call> made;
    std::vector<Failure> failures;
    std::size_t most_bytes = std::numeric_limits<std::size_t>::max();
};
State* state = nullptr;  // of the SystemCalls that lives

/// Writes the call down. True when it has to fail; then errno is set.
bool fails(const char* name, const char* path, int flags, int descriptor) {
    state->made.push_back({name, path, flags, descriptor});
    for (Failure& failure : state->failures)
        if (failure.name == name && --failure.calls_left == 0) {
            errno = failure.error;
            return true;
        }
    return false;
}

}  // namespace

SystemCalls::SystemCalls() { state = new State; }
SystemCalls::~SystemCalls() {
    delete state;
    state = nullptr;
}

void SystemCalls::fail(const std::string& name, int error, int nth) {
    state->failures.push_back({name, error, nth});
}

void SystemCalls::write_at_most(std::size_t bytes) { state->most_bytes = bytes; }

const std::vector<SystemCalls::Call>& SystemCalls::made() const { return state->made; }

std::vector<std::string> SystemCalls::names() const {
    std::vector<std::string> names;
    for (const Call& call : state->made) names.push_back(call.name);
    return names;
}

int SystemCalls::open_descriptors() const {
    int open = 0;
    for (const Call& call : state->made) {
        if (call.name == "open" && call.descriptor >= 0) ++open;
        if (call.name == "close" && call.descriptor >= 0) --open;
    }
    return open;
}

}  // namespace prot

// The linker's names for a call that is led here and for the system's own.
extern "C" {

int __real_open(const char* path, int flags, ...);
ssize_t __real_write(int descriptor, const void* bytes, size_t size);
int __real_fchmod(int descriptor, mode_t mode);
int __real_fsync(int descriptor);
int __real_close(int descriptor);
int __real_rename(const char* from, const char* to);
int __real_renameat2(int from_folder, const char* from, int to_folder, const char* to, unsigned flags);
int __real_link(const char* from, const char* to);
int __real_unlink(const char* path);

int __wrap_open(const char* path, int flags, ...) {
    mode_t mode = 0;
    if ((flags & O_CREAT) != 0) {
        va_list arguments;
        va_start(arguments, flags);
        mode = va_arg(arguments, mode_t);
        va_end(arguments);
    }
    if (prot::state == nullptr) return __real_open(path, flags, mode);
    if (prot::fails("open", path, flags, -1)) return -1;
    const int descriptor = __real_open(path, flags, mode);
    prot::state->made.back().descriptor = descriptor;
    return descriptor;
}

ssize_t __wrap_write(int descriptor, const void* bytes, size_t size) {
    if (prot::state == nullptr) return __real_write(descriptor, bytes, size);
    if (prot::fails("write", "", 0, descriptor)) return -1;
    return __real_write(descriptor, bytes, std::min(size, prot::state->most_bytes));
}

int __wrap_fchmod(int descriptor, mode_t mode) {
    if (prot::state != nullptr && prot::fails("fchmod", "", 0, descriptor)) return -1;
    return __real_fchmod(descriptor, mode);
}

int __wrap_fsync(int descriptor) {
    if (prot::state != nullptr && prot::fails("fsync", "", 0, descriptor)) return -1;
    return __real_fsync(descriptor);
}

int __wrap_close(int descriptor) {
    if (prot::state != nullptr && prot::fails("close", "", 0, descriptor)) {
        const int error = errno;
        __real_close(descriptor);
        errno = error;
        return -1;
    }
    return __real_close(descriptor);
}

int __wrap_rename(const char* from, const char* to) {
    if (prot::state != nullptr && prot::fails("rename", to, 0, -1)) return -1;
    return __real_rename(from, to);
}

int __wrap_renameat2(int from_folder, const char* from, int to_folder, const char* to, unsigned flags) {
    if (prot::state != nullptr && prot::fails("renameat2", to, 0, -1)) return -1;
    return __real_renameat2(from_folder, from, to_folder, to, flags);
}

int __wrap_link(const char* from, const char* to) {
    if (prot::state != nullptr && prot::fails("link", to, 0, -1)) return -1;
    return __real_link(from, to);
}

int __wrap_unlink(const char* path) {
    if (prot::state != nullptr && prot::fails("unlink", path, 0, -1)) return -1;
    return __real_unlink(path);
}

}  // extern "C"
