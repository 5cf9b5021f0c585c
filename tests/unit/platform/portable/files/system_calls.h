#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace prot {

/// What the file layer asks of the system while this lives, and a way to let the system fail. One at a time.
/// The linker leads the calls here (see tests/CMakeLists.txt), so that the product knows nothing of it.
class SystemCalls {
public:
    struct Call {
        std::string name;    ///< open, write, fchmod, fsync, close, rename, renameat2, link, unlink
        std::string path;    ///< of open, rename, renameat2, link (the new name) and unlink
        int flags = 0;       ///< of open
        int descriptor = 0;  ///< that the call uses, or that open returned
    };

    SystemCalls();
    ~SystemCalls();
    SystemCalls(const SystemCalls&) = delete;
    SystemCalls& operator=(const SystemCalls&) = delete;

    /// Call number `nth` (from 1, counted from now on) of `name` fails with `error` and does nothing; but a
    /// descriptor that it closes is closed.
    void fail(const std::string& name, int error, int nth = 1);

    /// A write takes no more than so many bytes.
    void write_at_most(std::size_t bytes);

    const std::vector<Call>& made() const;
    std::vector<std::string> names() const;

    /// Descriptors that were opened and not closed.
    int open_descriptors() const;
};

}  // namespace prot
