// The register program; what it writes and takes out again is checked by kvpexctl-conform.

#include <gtest/gtest.h>

#include "tests/control/support/RegisterProgram.h"

namespace {

TEST(Registration, Register_UnknownArgument_IsRefused) {
    EXPECT_EQ(kvtest::RunRegister(L" /x"), 2U);
}

}  // namespace
