#include "host_sdk/LzToolTip.h"

#include <gtest/gtest.h>

#include "refhost/testing/Faults.h"
#include "tests/support/ExpectCalls.h"
#include "tests/support/MessagePump.h"

namespace {

class HostToolTip : public ::testing::Test {
protected:
    HostToolTip() { tool.Create(s_windowClass, L"", WS_POPUP | WS_VISIBLE, {0, 0, 100, 100}, nullptr); }
    ~HostToolTip() override { kvhost::Faults::Reset(); }

    std::wstring TextOfTip() const {
        wchar_t text[256]{};
        TTTOOLINFOW info{};
        info.cbSize = TTTOOLINFOW_V2_SIZE;
        info.hwnd = tool.m_hWnd;
        info.uId = reinterpret_cast<UINT_PTR>(tool.m_hWnd);
        info.lpszText = text;
        ::SendMessageW(tip.GetSafeHwnd(), TTM_GETTEXTW, 256, reinterpret_cast<LPARAM>(&info));
        return text;
    }

    inline static const fw::WindowClass s_windowClass{.name = L"KvTestTool"};
    kvhost::Journal journal;
    CWnd tool;
    LzToolTip tip;
};

TEST_F(HostToolTip, Create_MakesAHiddenTip) {
    EXPECT_TRUE(tip.Create(tool));
    EXPECT_TRUE(::IsWindow(tip.GetSafeHwnd()));
    EXPECT_FALSE(::IsWindowVisible(tip.GetSafeHwnd()));
    EXPECT_EQ(TextOfTip(), L"");
    EXPECT_FALSE(tip.Create(tool));
    EXPECT_CALLS(journal, "LzToolTip::Create", "LzToolTip::Create");
}

TEST_F(HostToolTip, Create_NoToolOrToldToFail_MakesNone) {
    EXPECT_FALSE(tip.Create(nullptr));
    kvhost::Faults::FailService(L"LzToolTip::Create", 1);
    EXPECT_FALSE(tip.Create(tool));
    EXPECT_EQ(tip.GetSafeHwnd(), nullptr);
}

TEST_F(HostToolTip, SetTipText_IsWhatTheTipShows) {
    ASSERT_TRUE(tip.Create(tool));
    tip.SetTipText(L"first");
    tip.SetTipText(L"second");
    EXPECT_EQ(TextOfTip(), L"second");
    EXPECT_EQ(tip.GetTipText(), L"second");
}

TEST_F(HostToolTip, SetTipText_WithoutWindowOrToldToFail_ChangesNothing) {
    tip.SetTipText(L"first");
    EXPECT_TRUE(tip.GetTipText().IsEmpty());
    ASSERT_TRUE(tip.Create(tool));
    kvhost::Faults::FailService(L"LzToolTip::SetTipText", 1);
    tip.SetTipText(L"first");
    EXPECT_TRUE(tip.GetTipText().IsEmpty());
}

TEST_F(HostToolTip, RelayEvent_MouseRests_ShowsTheTip) {
    ASSERT_TRUE(tip.Create(tool));
    tip.SetTipText(L"text");
    ::SetCursorPos(20, 20);
    ::SendMessageW(tip.GetSafeHwnd(), TTM_SETDELAYTIME, TTDT_INITIAL, 10);
    tip.RelayEvent({.hwnd = tool,
                    .message = WM_MOUSEMOVE,
                    .wParam = 0,
                    .lParam = MAKELPARAM(20, 20),
                    .time = 0,
                    .pt = {20, 20}});
    EXPECT_TRUE(kvtest::PumpUntil([&] { return ::IsWindowVisible(tip.GetSafeHwnd()) != FALSE; }));
}

TEST_F(HostToolTip, RelayEvent_WithoutText_ShowsNothing) {
    ASSERT_TRUE(tip.Create(tool));
    ::SetCursorPos(20, 20);
    ::SendMessageW(tip.GetSafeHwnd(), TTM_SETDELAYTIME, TTDT_INITIAL, 10);
    tip.RelayEvent({.hwnd = tool,
                    .message = WM_MOUSEMOVE,
                    .wParam = 0,
                    .lParam = MAKELPARAM(20, 20),
                    .time = 0,
                    .pt = {20, 20}});
    EXPECT_FALSE(kvtest::PumpUntil([&] { return ::IsWindowVisible(tip.GetSafeHwnd()) != FALSE; }, 100));
}

}  // namespace
