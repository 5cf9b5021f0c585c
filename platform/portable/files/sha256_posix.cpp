#include <nettle/sha2.h>

#include "platform/portable/files/sha256.h"

namespace prot {

struct Sha256::State {
    sha256_ctx context{};
};

Sha256::Sha256() : state_(std::make_unique<State>()) { sha256_init(&state_->context); }
Sha256::~Sha256() = default;

void Sha256::add(std::string_view bytes) {
    sha256_update(&state_->context, bytes.size(), reinterpret_cast<const std::uint8_t*>(bytes.data()));
}

std::string Sha256::hexadecimal() {
    std::uint8_t digest[SHA256_DIGEST_SIZE];
    sha256_digest(&state_->context, sizeof digest, digest);
    return prot::hexadecimal(digest, sizeof digest);
}

}  // namespace prot
