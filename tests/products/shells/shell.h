#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace prot::test {

/// An interactive shell at a terminal of its own, into which a person types.
class TypedShell {
public:
    /// `command`: the shell and its arguments. It begins in `folder`.
    TypedShell(const std::vector<std::string>& command, const std::string& folder);
    ~TypedShell();
    TypedShell(const TypedShell&) = delete;
    TypedShell& operator=(const TypedShell&) = delete;

    /// Types the text and waits until the shell has nothing more to say. What it said.
    std::string type(std::string_view text);

private:
    std::string said();

    int terminal_ = -1;
    int process_ = -1;
};

}  // namespace prot::test
