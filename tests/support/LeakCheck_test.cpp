#include "tests/support/LeakCheck.h"

#include <gtest/gtest.h>

namespace {

long g_count = 0;
const kvtest::LeakCounter s_counter("probe objects", [] { return g_count; });

TEST(LeakCheck, NothingLeft_DescribesNothing) {
    const kvtest::LeakCheck check;
    DeleteObject(CreateSolidBrush(RGB(1, 2, 3)));
    EXPECT_EQ(check.Describe(), "");
}

TEST(LeakCheck, BrushLeft_IsNamed) {
    const kvtest::LeakCheck check;
    HBRUSH brush = CreateSolidBrush(RGB(1, 2, 3));
    EXPECT_EQ(check.Describe(), "left behind: brush\n");
    DeleteObject(brush);
}

TEST(LeakCheck, WindowLeft_IsNamed) {
    const kvtest::LeakCheck check;
    HWND window =
        CreateWindowExW(0, L"EDIT", nullptr, WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
    EXPECT_EQ(check.Describe(), "left behind: window of class Edit\n");
    DestroyWindow(window);
}

TEST(LeakCheck, MessageOnlyWindowLeft_IsNamed) {
    const kvtest::LeakCheck check;
    HWND window =
        CreateWindowExW(0, L"STATIC", nullptr, 0, 0, 0, 10, 10, HWND_MESSAGE, nullptr, nullptr, nullptr);
    EXPECT_EQ(check.Describe(), "left behind: window of class Static\n");
    DestroyWindow(window);
}

TEST(LeakCheck, RegisteredCountGrew_IsNamed) {
    const kvtest::LeakCheck check;
    g_count += 2;
    EXPECT_EQ(check.Describe(), "left behind: 2 probe objects\n");
    g_count -= 2;
}

}  // namespace
