#include <gmock/gmock.h>

#include "tests/support/default_signals.h"

int main(int argc, char** argv) {
    prot::test::restore_default_signals();
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
