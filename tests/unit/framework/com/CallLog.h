#pragma once

#include <string>
#include <vector>

#include "tests/support/ExpectCalls.h"

namespace kvtest {

/// The calls of one test in their order, written by sites, sinks and controls alike.
CallLines& Log();

/// Writes one call.
inline void Note(const std::string& call) {
    Log().push_back(call);
}

}  // namespace kvtest

/// The calls since the last time are exactly these, in this order.
#define EXPECT_LOG(...) EXPECT_CALLS(std::exchange(::kvtest::Log(), {}), __VA_ARGS__)
#define EXPECT_EMPTY_LOG() EXPECT_TRUE(::kvtest::SameCalls({}, std::exchange(::kvtest::Log(), {})))
