#pragma once

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "tests/control/core/ClassRows.h"
#include "tests/control/support/ClassScenarios.h"

namespace kvtest {

/// A class that clients can create, as every suite takes it: its row of the class table and its scenario.
struct AvailableClass : ClassRow {
    const ClassScenario* scenario = nullptr;
};

/// Each class that is READY in the class table.
[[nodiscard]] const std::vector<AvailableClass>& AvailableClasses();

void PrintTo(const AvailableClass& row, std::ostream* stream);

[[nodiscard]] std::string NameOfClass(const ::testing::TestParamInfo<AvailableClass>& info);

}  // namespace kvtest

/// Runs a suite once for each available class.
#define KV_FOR_EACH_AVAILABLE_CLASS(suite)                                                      \
    INSTANTIATE_TEST_SUITE_P(Classes, suite, ::testing::ValuesIn(::kvtest::AvailableClasses()), \
                             &::kvtest::NameOfClass)
