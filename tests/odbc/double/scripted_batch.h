#pragma once

#include <atomic>
#include <chrono>
#include <functional>
#include <memory>

#include "tests/odbc/double/script.h"

namespace prot::odbc_double {

/// How long whoever sent a text waits for its answer.
struct Patience {
    std::chrono::seconds limit{0};  ///< 0: none
    std::atomic<bool> is_cancelled = false;
};

/// Waits as a server that hangs. Raises a Failure when patience ends before.
void hang(std::chrono::milliseconds time, const Patience& patience);

/// Whether a connection has been lost: a fact that all that happens on it shares.
struct Line {
    bool is_lost = false;

    /// Raises the Failure of a lost connection where it is one.
    void require() const;
};

/// What a rule says, and then what is left of the statement's own batch.
class ScriptedBatch : public Batch {
public:
    /// own: makes the statement's own batch, if it is to run; patience and line outlive the batch.
    ScriptedBatch(std::shared_ptr<const Rule> rule, std::function<std::unique_ptr<Batch>()> own,
                  const Patience& patience, Line& line);

    std::unique_ptr<Result> next_result() override;

private:
    std::unique_ptr<Result> own_result();

    const std::shared_ptr<const Rule> rule_;
    const std::function<std::unique_ptr<Batch>()> make_own_;
    const Patience& patience_;
    Line& line_;
    std::unique_ptr<Batch> own_;
    std::size_t next_ = 0;
};

}  // namespace prot::odbc_double
