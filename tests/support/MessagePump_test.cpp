#include "tests/support/MessagePump.h"

#include <gtest/gtest.h>

#include "framework/base/WindowsApi.h"

namespace {

TEST(MessagePump, ConditionComesWithATimer_ReturnsTrue) {
    static bool fired;
    fired = false;
    const UINT_PTR timer = SetTimer(nullptr, 0, 10, [](HWND, UINT, UINT_PTR, DWORD) { fired = true; });
    EXPECT_TRUE(kvtest::PumpUntil([] { return fired; }));
    KillTimer(nullptr, timer);
}

TEST(MessagePump, ConditionNeverHolds_ReturnsFalseAfterTheTime) {
    EXPECT_FALSE(kvtest::PumpUntil([] { return false; }, 30));
}

}  // namespace
