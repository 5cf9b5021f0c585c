#pragma once

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace prot {

/// Whose turn it is on a connection that two threads use: the run's own thread asks for it at any time, a
/// thread that reads ahead gives it up after a few rows and takes it again only when the other does not wait.
class SqliteTurns {
public:
    /// The run's own thread has the connection while one lives. Never nested.
    class OfRun {
    public:
        explicit OfRun(SqliteTurns& turns) : turns_(turns) {
            if (turns_.connection_.try_lock()) return;
            turns_.run_waits_ = true;
            lock_soon(turns_.connection_);
            turns_.run_waits_ = false;
            turns_.run_has_it_.notify_one();
        }
        ~OfRun() { turns_.connection_.unlock(); }
        OfRun(const OfRun&) = delete;
        OfRun& operator=(const OfRun&) = delete;

    private:
        SqliteTurns& turns_;
    };

    /// The reading thread has it.
    class OfReader {
    public:
        explicit OfReader(SqliteTurns& turns) : lock_(turns.connection_, std::defer_lock) {
            for (int i = 0; i < most_tries && turns.run_waits_; ++i) std::this_thread::yield();
            lock_soon(lock_);
            turns.run_has_it_.wait(lock_, [&turns] { return !turns.run_waits_; });
        }

    private:
        std::unique_lock<std::mutex> lock_;
    };

private:
    static constexpr int most_tries = 100;

    /// A turn is shorter than it takes to wake a thread that sleeps, above all one whose processor sleeps,
    /// too. So the lock is asked for over and over as long as a turn takes, before it is waited for.
    template <class Lock>
    static void lock_soon(Lock& lock) {
        for (int i = 0; i < most_tries; ++i) {
            if (lock.try_lock()) return;
            std::this_thread::yield();
        }
        lock.lock();
    }

    std::mutex connection_;
    std::atomic<bool> run_waits_ = false;
    std::condition_variable run_has_it_;  // what it waited for
};

}  // namespace prot
