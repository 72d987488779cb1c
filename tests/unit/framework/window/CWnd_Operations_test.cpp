#include <gtest/gtest.h>

#include "framework/base/Handles.h"
#include "framework/window/CButton.h"
#include "framework/window/CWnd.h"
#include "tests/support/MessagePump.h"
#include "tests/unit/framework/window/ProbeWindow.h"

namespace {

using kvtest::ProbeWindow;

TEST(CWndOperations, Text_LongAndEmpty_ComesBackWhole) {
    ProbeWindow window;
    ASSERT_TRUE(window.Show());
    const std::wstring text(3000, L'\u20AC');
    window.SetWindowText(text.c_str());
    CString read;
    window.GetWindowText(read);
    EXPECT_EQ(read.Std(), text);
    window.SetWindowText(L"");
    EXPECT_TRUE(window.GetWindowText().IsEmpty());
}

TEST(CWndOperations, Place_ParentAndChild_MapsBetweenThem) {
    ProbeWindow parent;
    ASSERT_TRUE(parent.Show());
    CButton child;
    ASSERT_TRUE(child.Create(L"b", WS_CHILD | WS_VISIBLE, {20, 30, 60, 50}, parent, 3));
    EXPECT_EQ(child.GetParent(), parent.m_hWnd);
    EXPECT_EQ(parent.GetDlgItem(3), child.m_hWnd);
    EXPECT_TRUE(parent.IsChild(child));
    EXPECT_EQ(child.GetDlgCtrlID(), 3);
    CRect bounds = child.GetClientRect();
    EXPECT_EQ(bounds, CRect(0, 0, 40, 20));
    child.MapWindowPoints(parent, &bounds);
    EXPECT_EQ(bounds, CRect(20, 30, 60, 50));
    parent.ClientToScreen(&bounds);
    EXPECT_EQ(bounds, child.GetWindowRect());
    parent.ScreenToClient(&bounds);
    EXPECT_EQ(bounds, CRect(20, 30, 60, 50));
    CPoint point(1, 2);
    child.ClientToScreen(&point);
    parent.ScreenToClient(&point);
    EXPECT_EQ(point, CPoint(21, 32));
    child.MoveWindow({0, 0, 11, 12});
    EXPECT_EQ(child.GetClientRect(), CRect(0, 0, 11, 12));
    child.DestroyWindow();
}

TEST(CWndOperations, StyleAndState_Changes_AreReported) {
    ProbeWindow window;
    ASSERT_TRUE(window.Show());
    EXPECT_TRUE(window.IsWindowVisible());
    window.ShowWindow(SW_HIDE);
    EXPECT_FALSE(window.IsWindowVisible());
    EXPECT_TRUE(window.ModifyStyle(0, WS_BORDER, SWP_FRAMECHANGED));
    EXPECT_FALSE(window.ModifyStyle(0, WS_BORDER));
    EXPECT_NE(window.GetStyle() & WS_BORDER, 0U);
    window.EnableWindow(FALSE);
    EXPECT_FALSE(window.IsWindowEnabled());
}

TEST(CWndOperations, FocusFontTimer_RoundTrip) {
    ProbeWindow window;
    ASSERT_TRUE(window.Show());
    window.SetFocus();
    EXPECT_TRUE(window.HasFocus());
    EXPECT_NE(window.SetTimer(2, 10), 0U);
    EXPECT_TRUE(kvtest::PumpUntil([&] { return window.CountOf(WM_TIMER) > 0; }));
    EXPECT_TRUE(window.KillTimer(2));
    CButton button;
    ASSERT_TRUE(button.Create(L"b", WS_CHILD, {0, 0, 10, 10}, window, 3));
    const fw::UniqueFont font(::CreateFontW(-11, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, L"MS Shell Dlg"));
    button.SetFont(font.Get());
    EXPECT_EQ(button.GetFont(), font.Get());
    button.DestroyWindow();
}

TEST(CWndOperations, NoWindow_TouchesNeitherScreenNorThread) {
    CWnd none;
    const HWND focus = ::GetFocus();
    EXPECT_FALSE(none.PostMessage(WM_USER));
    EXPECT_EQ(none.SetTimer(1, 10), 0U);
    EXPECT_EQ(none.SetFocus(), nullptr);
    EXPECT_EQ(::GetFocus(), focus);
    EXPECT_FALSE(none.RedrawWindow());
    none.Invalidate();
    EXPECT_EQ(none.GetWindowRect(), CRect());
    EXPECT_EQ(none.SendMessage(WM_GETTEXTLENGTH), 0);
    EXPECT_TRUE(none.GetWindowText().IsEmpty());
    MSG message{};
    EXPECT_FALSE(::PeekMessageW(&message, nullptr, WM_USER, WM_USER, PM_REMOVE));
}

TEST(CWndOperations, DefaultOfTheCurrentMessage_IsTheSystems) {
    ProbeWindow window;
    ASSERT_TRUE(window.Show());
    window.filter = [&](UINT message, WPARAM, LPARAM, LRESULT& result) {
        if (message == WM_SETTEXT) {
            ::SendMessageW(window, WM_NULL, 0, 0);
            result = window.DefWindowProc();
            return true;
        }
        return false;
    };
    EXPECT_EQ(::SendMessageW(window, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"by default")), TRUE);
    EXPECT_EQ(window.GetWindowText(), L"by default");
    EXPECT_EQ(window.DefWindowProc(), 0) << "no message is being handled";
}

}  // namespace
