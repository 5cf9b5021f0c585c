#pragma once

#include <chrono>
#include <cstdint>
#include <limits>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

#include "tests/odbc/double/result.h"

namespace prot::odbc_double {

/// One result of a rule, in the order in which it happens: it hangs, opens, yields rows, and fails.
struct ScriptedResult {
    std::chrono::milliseconds hang{0};
    std::vector<Record> warnings;
    std::vector<Column> columns;  ///< none: what the statement itself yields, unless it only fails or counts
    std::vector<Row> rows;
    std::size_t own_rows = std::numeric_limits<std::size_t>::max();  ///< at most so many of the statement's
    std::int64_t count = -1;                                         ///< rows changed; -1: does not count
    bool is_own = false;
    std::vector<Record> failure;  ///< behind the rows
    bool is_lost = false;         ///< the connection, behind the rows
};

/// What happens when a text is sent that contains `text`.
struct Rule {
    std::string text;
    int turn = 0;  ///< only the so-many-th time; 0: each time
    std::vector<ScriptedResult> results;
};

/// What a server does that SQLite cannot play. A line for each step, fields parted by tabs; \N is Null, \t,
/// \r, \n and \\ are what they are elsewhere; # begins a comment:
///
///     delay    500                      microseconds that every text takes
///     when     FROM Kunden    2         begins a rule: a text that contains this, the second time only
///     hang     3000                     milliseconds, or until it is cancelled or its time is over
///     warn     01000    5701    …       a record of success: state, native number, message
///     columns  id int    name nvarchar(20)
///     row      1    Müller
///     own      3                        the rows of the statement itself, three at most
///     count    7                        no rows: so many were changed
///     fail     40001    1205    …       one record or several, behind the rows that stand above
///     lost                              the connection, likewise; 08S01, or what `fail` says
///     next                              begins the next result of the batch
///
/// The first rule that fits counts. A rule whose text begins with a bracket is for what a driver is asked
/// beside texts: [connect], [commit], [rollback].
class Script {
public:
    /// The script of that file, one for all connections of the process, so that turns are counted once.
    static std::shared_ptr<Script> of_file(const std::string& path);

    explicit Script(std::string path) : path_(std::move(path)) {}

    /// Reads the file again, which need not be there. Null: nothing happens.
    std::shared_ptr<const Rule> rule_for(std::string_view text);

    std::chrono::microseconds delay();

private:
    void read();

    const std::string path_;
    std::mutex mutex_;  // of all below
    std::string content_;
    std::chrono::microseconds delay_{0};
    std::vector<std::shared_ptr<const Rule>> rules_;
    std::vector<int> turns_;  // of each rule
};

}  // namespace prot::odbc_double
