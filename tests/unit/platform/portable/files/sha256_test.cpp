#include "platform/portable/files/sha256.h"

#include <gtest/gtest.h>

namespace prot {
namespace {

std::string sha256_of(std::string_view bytes) {
    Sha256 sum;
    sum.add(bytes);
    return sum.hexadecimal();
}

TEST(Sha256, GivesTheStandardsOwnExamples) {
    EXPECT_EQ(sha256_of(""), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
    EXPECT_EQ(sha256_of("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    EXPECT_EQ(sha256_of(std::string(1'000'000, 'a')),
              "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0");
}

TEST(Sha256, DoesNotDependOnWhereTheBytesAreCut) {
    const std::string bytes(1000, 'x');
    for (const std::size_t at : {0U, 1U, 63U, 64U, 65U, 1000U}) {
        Sha256 sum;
        sum.add(std::string_view(bytes).substr(0, at));
        sum.add(std::string_view(bytes).substr(at));
        EXPECT_EQ(sum.hexadecimal(), sha256_of(bytes)) << at;
    }
}

}  // namespace
}  // namespace prot
