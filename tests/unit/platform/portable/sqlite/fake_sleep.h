#pragma once

#include <sqlite3.h>

#include <functional>

namespace prot {

/// While it lives, the time that SQLite sleeps until a lock is gone passes at once and is counted. Made
/// before the connections that it is for, one at a time.
class FakeSleep {
public:
    FakeSleep() {
        passed_ = 0;
        vfs_ = *system_;
        vfs_.zName = "fake sleep";
        vfs_.xSleep = sleep;
        sqlite3_vfs_register(&vfs_, 1);
    }
    ~FakeSleep() {
        sqlite3_vfs_register(system_, 1);
        sqlite3_vfs_unregister(&vfs_);
        meanwhile_ = nullptr;
    }
    FakeSleep(const FakeSleep&) = delete;
    FakeSleep& operator=(const FakeSleep&) = delete;

    int milliseconds() const { return passed_ / 1000; }
    void reset() { passed_ = 0; }

    /// What another program does while SQLite sleeps; is told the milliseconds passed so far.
    void meanwhile(std::function<void(int)> action) { meanwhile_ = std::move(action); }

private:
    static int sleep(sqlite3_vfs*, int microseconds) {
        passed_ += microseconds;
        if (meanwhile_) meanwhile_(passed_ / 1000);
        return microseconds;
    }

    sqlite3_vfs* const system_ = sqlite3_vfs_find(nullptr);
    static inline sqlite3_vfs vfs_;  // SQLite keeps its address
    static inline int passed_;       // microseconds
    static inline std::function<void(int)> meanwhile_;
};

}  // namespace prot
