#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <string>
#include <vector>

#include "tests/control/core/ClassRows.h"
#include "tests/control/support/RegisterProgram.h"
#include "tests/support/ExpectCalls.h"

namespace kvtest {

/// The classes that clients can create; a class joins these tests with its state in the class table.
[[nodiscard]] inline std::vector<ClassRow> AvailableClasses() {
    std::vector<ClassRow> available;
    std::ranges::copy_if(s_classRows, std::back_inserter(available),
                         [](const ClassRow& row) { return row.state == "READY"; });
    return available;
}

[[nodiscard]] inline std::string NameOfClass(const ::testing::TestParamInfo<ClassRow>& info) {
    return ToUtf8(info.param.name);
}

/// What a client of the platform does with one class that is registered for the current user.
class ClientTest : public ::testing::TestWithParam<ClassRow> {
protected:
    static void SetUpTestSuite() { ASSERT_EQ(RunRegister(L""), 0U); }
    static void TearDownTestSuite() { EXPECT_EQ(RunRegister(L" /u"), 0U); }
};

}  // namespace kvtest
