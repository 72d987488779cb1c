#include "core/ChildIds.h"
#include "framework/window/CWnd.h"
#include "tests/support/MessagePump.h"
#include "tests/unit/core/ControlBench.h"

namespace {

// A row whose value has the width that the test sets, and which notes its drawing.
class WideControl final : public kvtest::OpenControl {
public:
    using kvtest::OpenControl::OpenControl;
    HRESULT GetTextTipWidth(int& tipWidth) override {
        tipWidth = width;
        return widthResult;
    }
    HRESULT Handle_OnDraw(ATL_DRAWINFO& info) override {
        kvtest::Note(L"Draw", info.prcBounds->right - info.prcBounds->left,
                     ::WindowFromDC(info.hdcDraw) == m_textTip.m_hWnd);
        return S_OK;
    }
    int width = 100;
    HRESULT widthResult = S_OK;
};

class CKvPeCtrlBase_Tip : public kvtest::ControlTest {
protected:
    CKvPeCtrlBase_Tip() {
        parent.Create(s_windowClass, L"", WS_POPUP | WS_VISIBLE, {100, 100, 300, 200}, nullptr);
        window.Create(s_windowClass, L"", WS_CHILD | WS_VISIBLE, {10, 10, 90, 30}, parent);
        shell.window = window;
        ::SetCursorPos(120, 120);
        kvtest::PumpWaiting();
        journal.Clear();
    }

    LRESULT Move() {
        BOOL handled = TRUE;
        return row.Handle_OnMouseMove(WM_MOUSEMOVE, 0, 0, handled);
    }

    inline static const fw::WindowClass s_windowClass{.name = L"KvTestTipOwner"};
    CWnd parent;
    CWnd window;
    WideControl row{&shell, &shell};
};

TEST_F(CKvPeCtrlBase_Tip, WithoutWindow_Fails) {
    shell.window = nullptr;
    EXPECT_EQ(Move(), E_FAIL);
}

TEST_F(CKvPeCtrlBase_Tip, WidthCannotBeHad_Fails) {
    row.widthResult = E_INVALIDARG;
    EXPECT_EQ(Move(), E_FAIL);
}

// As when the system is out of windows.
TEST_F(CKvPeCtrlBase_Tip, WindowIsRefused_Fails) {
    const HHOOK hook = ::SetWindowsHookExW(
        WH_CBT,
        [](int code, WPARAM wParam, LPARAM lParam) -> LRESULT {
            return code == HCBT_CREATEWND ? 1 : ::CallNextHookEx(nullptr, code, wParam, lParam);
        },
        nullptr, ::GetCurrentThreadId());
    EXPECT_EQ(Move(), E_FAIL);
    ::UnhookWindowsHookEx(hook);
    EXPECT_EQ(Move(), S_OK);
    EXPECT_TRUE(row.m_textTip.IsShown());
}

TEST_F(CKvPeCtrlBase_Tip, ValueThatFits_ShowsNoTip) {
    row.width = 80;
    EXPECT_EQ(Move(), S_OK);
    EXPECT_FALSE(row.m_textTip.IsWindow());
}

TEST_F(CKvPeCtrlBase_Tip, WiderValue_ShowsTheTipOverTheRow) {
    row.width = 81;
    EXPECT_EQ(Move(), S_OK);
    ASSERT_TRUE(row.m_textTip.IsWindow());
    EXPECT_TRUE(row.m_textTip.IsShown());
    EXPECT_EQ(::GetWindowLongPtrW(row.m_textTip, GWLP_USERDATA), KVPE_TEXT_TIP_MARK);
    const CRect bounds = row.m_textTip.GetWindowRect();
    EXPECT_EQ(bounds, CRect(110, 110, 110 + 81 + 5, 110 + 20 + 2));
    EXPECT_EQ(row.m_textTip.GetOwner(), window.m_hWnd);
    EXPECT_EQ(row.m_textTip.GetOwnerParent(), parent.m_hWnd);
}

TEST_F(CKvPeCtrlBase_Tip, ShownTip_AsksTheRowToDrawItsText) {
    row.width = 150;
    EXPECT_EQ(Move(), S_OK);
    BOOL handled = TRUE;
    EXPECT_EQ(row.Handle_OnDrawTooltip(WM_APP + 1, KVPE_TEXT_TIP_MARK, 0, handled), S_OK);
    EXPECT_CALLS(journal, "Draw 155 1");
}

TEST_F(CKvPeCtrlBase_Tip, OtherRequestsToDraw_AreIgnored) {
    row.width = 150;
    EXPECT_EQ(Move(), S_OK);
    BOOL handled = TRUE;
    EXPECT_EQ(row.Handle_OnDrawTooltip(WM_APP + 1, 1041, 0, handled), 0);
    EXPECT_NO_CALLS(journal);
}

TEST_F(CKvPeCtrlBase_Tip, RequestToDrawWithoutTip_IsIgnored) {
    BOOL handled = TRUE;
    EXPECT_EQ(row.Handle_OnDrawTooltip(WM_APP + 1, KVPE_TEXT_TIP_MARK, 0, handled), 0);
    EXPECT_NO_CALLS(journal);
}

TEST_F(CKvPeCtrlBase_Tip, EndEdit_PointsTheTipToTheControlAnew) {
    row.width = 150;
    EXPECT_EQ(Move(), S_OK);
    row.m_textTip.SetOwner(nullptr, nullptr);
    EXPECT_EQ(row.EndEdit(), S_OK);
    EXPECT_EQ(row.m_textTip.GetOwner(), window.m_hWnd);
    EXPECT_EQ(row.m_textTip.GetOwnerParent(), parent.m_hWnd);
    shell.window = nullptr;
    EXPECT_EQ(row.EndEdit(), S_OK);
    EXPECT_EQ(row.m_textTip.GetOwner(), nullptr);
    EXPECT_EQ(row.m_textTip.GetOwnerParent(), nullptr);
}

TEST_F(CKvPeCtrlBase_Tip, WindowMadeAnew_TipBelongsToIt) {
    row.width = 150;
    EXPECT_EQ(Move(), S_OK);
    row.m_textTip.HideTextTooltip();
    window.DestroyWindow();
    window.Create(s_windowClass, L"", WS_CHILD | WS_VISIBLE, {30, 50, 110, 70}, parent);
    shell.window = window;
    EXPECT_EQ(Move(), S_OK);
    EXPECT_TRUE(row.m_textTip.IsShown());
    EXPECT_EQ(row.m_textTip.GetOwner(), window.m_hWnd);
    EXPECT_EQ(row.m_textTip.GetWindowRect().TopLeft(), window.GetWindowRect().TopLeft());
}

TEST_F(CKvPeCtrlBase_Tip, ShownTipGoesWithThePalette_NextTipIsShown) {
    row.width = 150;
    EXPECT_EQ(Move(), S_OK);
    ASSERT_TRUE(row.m_textTip.IsShown());
    parent.DestroyWindow();
    EXPECT_FALSE(row.m_textTip.IsWindow());
    parent.Create(s_windowClass, L"", WS_POPUP | WS_VISIBLE, {100, 100, 300, 200}, nullptr);
    window.Create(s_windowClass, L"", WS_CHILD | WS_VISIBLE, {10, 10, 90, 30}, parent);
    shell.window = window;
    EXPECT_EQ(Move(), S_OK);
    ASSERT_TRUE(row.m_textTip.IsWindow());
    EXPECT_EQ(row.m_textTip.GetWindowRect(), CRect(110, 110, 110 + 150 + 5, 110 + 20 + 2));
    EXPECT_TRUE(kvtest::PumpUntil([this] { return row.m_textTip.IsWindowVisible() != FALSE; }));
}

}  // namespace
