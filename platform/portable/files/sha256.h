#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace prot {

/// The SHA-256 of bytes that come one after another.
class Sha256 {
public:
    Sha256();
    ~Sha256();
    Sha256(const Sha256&) = delete;
    Sha256& operator=(const Sha256&) = delete;

    void add(std::string_view bytes);

    /// 64 hexadecimal digits in small letters. Ends it; then nothing may be added.
    std::string hexadecimal();

private:
    struct State;
    std::unique_ptr<State> state_;
};

/// Bytes as hexadecimal digits in small letters.
std::string hexadecimal(const unsigned char* bytes, std::size_t count);

}  // namespace prot
