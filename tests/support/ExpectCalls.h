#pragma once

#include <gtest/gtest.h>

#include "tests/support/CallLines.h"

namespace kvtest {

/// Names the first line that differs and shows both lists, so that a failed test is read without a debugger.
[[nodiscard]] inline ::testing::AssertionResult SameCalls(const CallLines& expected,
                                                          const CallLines& actual) {
    if (expected == actual) {
        return ::testing::AssertionSuccess();
    }
    std::size_t first = 0;
    while (first < expected.size() && first < actual.size() && expected[first] == actual[first]) {
        ++first;
    }
    auto result = ::testing::AssertionFailure();
    result << "calls differ at line " << first + 1 << "\nexpected:\n";
    for (std::size_t i = 0; i < expected.size(); ++i) {
        result << (i == first ? "> " : "  ") << expected[i] << '\n';
    }
    result << "actual:\n";
    for (std::size_t i = 0; i < actual.size(); ++i) {
        result << (i == first ? "> " : "  ") << actual[i] << '\n';
    }
    return result;
}

}  // namespace kvtest

/// The journal (or a filtered list from CallsIgnoring, CallsOnly) holds exactly these lines in this order.
#define EXPECT_CALLS(journal, ...) \
    EXPECT_TRUE(::kvtest::SameCalls(::kvtest::CallLines{__VA_ARGS__}, ::kvtest::CallsOf(journal)))
#define EXPECT_NO_CALLS(journal) EXPECT_TRUE(::kvtest::SameCalls({}, ::kvtest::CallsOf(journal)))
