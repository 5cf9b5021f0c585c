#pragma once

namespace prot::test {

/// Gives this process the signals of a fresh login: what its parent ignores or blocks (nohup, a script's
/// trap) it inherits otherwise, and the programs that it starts, too.
void restore_default_signals();

}  // namespace prot::test
