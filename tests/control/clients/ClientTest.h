#pragma once

#include "tests/control/support/AvailableClass.h"
#include "tests/control/support/RegisterProgram.h"

namespace kvtest {

/// What a client of the platform does with one class that is registered for the current user.
class ClientTest : public ::testing::TestWithParam<AvailableClass> {
protected:
    static void SetUpTestSuite() { ASSERT_EQ(RunRegister(L""), 0U); }
    static void TearDownTestSuite() { EXPECT_EQ(RunRegister(L" /u"), 0U); }
};

}  // namespace kvtest
