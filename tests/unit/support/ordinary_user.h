#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

namespace prot {

/// An ordinary user's rights while it lives, when the tests run as root, whom no permission stops.
class OrdinaryUser {
public:
    OrdinaryUser() {
        constexpr uid_t nobody = 65534;
        EXPECT_TRUE(!was_root_ || (::setegid(nobody) == 0 && ::seteuid(nobody) == 0));
    }
    ~OrdinaryUser() { EXPECT_TRUE(!was_root_ || (::seteuid(0) == 0 && ::setegid(0) == 0)); }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

private:
    bool was_root_ = ::geteuid() == 0;
};

}  // namespace prot
