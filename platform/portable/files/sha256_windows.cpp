#include <windows.h>

#include <bcrypt.h>

#include <algorithm>

#include "platform/automation/error.h"
#include "platform/portable/files/sha256.h"

namespace prot {

namespace {

constexpr std::size_t digest_size = 32;

void require(NTSTATUS status) {
    if (status < 0)
        throw AutomationError(ErrorNumber::internal, "Windows kann keine Prüfsumme (SHA-256) bilden.");
}

}  // namespace

struct Sha256::State {
    BCRYPT_ALG_HANDLE algorithm = nullptr;
    BCRYPT_HASH_HANDLE hash = nullptr;

    State() = default;
    State(const State&) = delete;
    State& operator=(const State&) = delete;
    ~State() {
        if (hash != nullptr) BCryptDestroyHash(hash);
        if (algorithm != nullptr) BCryptCloseAlgorithmProvider(algorithm, 0);
    }
};

Sha256::Sha256() : state_(std::make_unique<State>()) {
    require(BCryptOpenAlgorithmProvider(&state_->algorithm, BCRYPT_SHA256_ALGORITHM, nullptr, 0));
    require(BCryptCreateHash(state_->algorithm, &state_->hash, nullptr, 0, nullptr, 0, 0));
}
Sha256::~Sha256() = default;

void Sha256::add(std::string_view bytes) {
    constexpr std::size_t most = 1 << 30;
    while (!bytes.empty()) {
        const std::string_view part = bytes.substr(0, most);
        // The system only reads them.
        auto* const data = reinterpret_cast<unsigned char*>(const_cast<char*>(part.data()));
        require(BCryptHashData(state_->hash, data, static_cast<ULONG>(part.size()), 0));
        bytes.remove_prefix(part.size());
    }
}

std::string Sha256::hexadecimal() {
    unsigned char digest[digest_size];
    require(BCryptFinishHash(state_->hash, digest, digest_size, 0));
    return prot::hexadecimal(digest, digest_size);
}

}  // namespace prot
