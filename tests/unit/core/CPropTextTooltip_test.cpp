#include "core/CPropTextTooltip.h"

#include <gtest/gtest.h>

#include "core/PrivateMessages.h"
#include "tests/support/ExpectCalls.h"
#include "tests/support/JournalNote.h"
#include "tests/support/MessagePump.h"
#include "tests/support/WarmUp.h"

namespace {

// The window that a tip talks to: notes the request to paint.
class TipOwner final : public CWnd {
public:
    ~TipOwner() override { DestroyWindow(); }

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_KVPE_DRAW_TIP) {
            kvtest::Note(L"DrawTip", wParam);
            return 0;
        }
        return CWnd::WindowProc(message, wParam, lParam);
    }
};

class TextTip : public ::testing::Test {
protected:
    static constexpr RECT c_ownerRect = {10, 10, 90, 30};
    static constexpr RECT c_tipRect = {0, 0, 150, 22};

    TextTip() {
        frame.Create(s_windowClass, L"", WS_POPUP | WS_VISIBLE, {100, 100, 300, 200}, nullptr);
        frame.SetFocus();
        owner.Create(s_windowClass, L"", WS_CHILD | WS_VISIBLE, c_ownerRect, frame);
        EXPECT_TRUE(tip.Create(owner));
        tip.SetOwner(owner, frame);
        kvtest::PumpWaiting();
        journal.Clear();
    }

    void PutCursor(int x, int y) const {
        CPoint point(x, y);
        owner.ClientToScreen(&point);
        ::SetCursorPos(point.x, point.y);
    }
    // What the system does when the time has passed.
    void PassTime() { ::SendMessageW(tip, WM_TIMER, 2, 0); }
    void ShowAtCursor() {
        PutCursor(5, 5);
        tip.ShowTextTooltip(c_tipRect);
        PassTime();
    }

    inline static const fw::WindowClass s_windowClass{.name = L"KvTestTip"};
    kvhost::Journal journal;
    CWnd frame;
    TipOwner owner;
    CPropTextTooltip tip;
};

// The system keeps regions of the first window that is framed.
const kvtest::WarmUpStep s_framedWindow([] {
    CWnd over;
    over.Create({.name = L"KvTestTip"}, L"", WS_POPUP | WS_VISIBLE, {100, 100, 300, 200}, nullptr);
    CPropTextTooltip tip;
    tip.Create(over);
    tip.SetOwner(over, nullptr);
    ::SetCursorPos(105, 105);
    tip.ShowTextTooltip({0, 0, 150, 22});
    ::SendMessageW(tip, WM_TIMER, CPropTextTooltip::TimerId, 0);
    tip.DestroyWindow();
    over.DestroyWindow();
    kvtest::PumpWaiting();
});

CRect Fit(const RECT& wanted) {
    return CPropTextTooltip::FitIntoDesktop(wanted, {0, 0, 800, 600});
}

TEST(TextTipPlace, InsideTheDesktop_Stays) {
    EXPECT_EQ(Fit({10, 20, 110, 40}), CRect(10, 20, 110, 40));
    EXPECT_EQ(Fit({0, 0, 800, 600}), CRect(0, 0, 800, 600));
}

TEST(TextTipPlace, WiderThanTheDesktop_IsCutToItsWidth) {
    EXPECT_EQ(Fit({10, 20, 1200, 40}), CRect(10, 20, 810, 40));
}

TEST(TextTipPlace, HigherThanTheDesktop_IsCutToItsHeightAndMovedIn) {
    EXPECT_EQ(Fit({10, 20, 110, 1000}), CRect(10, 0, 110, 600));
}

TEST(TextTipPlace, BelowOrAboveTheDesktop_MovesIn) {
    EXPECT_EQ(Fit({10, 590, 110, 612}), CRect(10, 578, 110, 600));
    EXPECT_EQ(Fit({10, -5, 110, 17}), CRect(10, 0, 110, 22));
}

TEST(TextTipPlace, BesideTheDesktop_KeepsItsColumn) {
    EXPECT_EQ(Fit({-50, 20, 50, 40}), CRect(-50, 20, 50, 40));
    EXPECT_EQ(Fit({750, 20, 850, 40}), CRect(750, 20, 850, 40));
}

TEST_F(TextTip, Window_IsAToolPopupThatIsKnownAsATip) {
    EXPECT_TRUE(::GetWindowLongW(tip, GWL_EXSTYLE) & 128);
    EXPECT_TRUE(tip.GetStyle() & WS_POPUP);
    EXPECT_EQ(::GetClassLongPtrW(tip, GCL_STYLE), 6147u);
    EXPECT_EQ(reinterpret_cast<HCURSOR>(::GetClassLongPtrW(tip, GCLP_HCURSOR)),
              ::LoadCursorW(nullptr, IDC_ARROW));
    EXPECT_EQ(::GetWindowLongPtrW(tip, GWLP_USERDATA), 1042);
    EXPECT_TRUE(CPropTextTooltip::IsTextTip(tip.m_hWnd));
    EXPECT_FALSE(CPropTextTooltip::IsTextTip(owner.m_hWnd));
    EXPECT_FALSE(tip.IsWindowVisible());
}

TEST_F(TextTip, Show_WaitsForTheTimerInTheTopmostBand) {
    PutCursor(5, 5);
    tip.ShowTextTooltip(c_tipRect);
    EXPECT_TRUE(tip.IsShown());
    EXPECT_FALSE(tip.IsWindowVisible());
    EXPECT_TRUE(::GetWindowLongW(tip, GWL_EXSTYLE) & WS_EX_TOPMOST);
    EXPECT_EQ(tip.GetWindowRect(), CRect(110, 110, 260, 132));
    EXPECT_TRUE(::KillTimer(tip, 2));
    EXPECT_NO_CALLS(journal);
}

TEST_F(TextTip, Show_LargerThanTheDesktop_IsCutToIt) {
    CRect desktop;
    ::GetWindowRect(::GetDesktopWindow(), &desktop);
    tip.ShowTextTooltip({0, 0, 20000, 20000});
    EXPECT_EQ(tip.GetWindowRect().Size(), desktop.Size());
    EXPECT_EQ(tip.GetWindowRect().top, desktop.top);
}

TEST_F(TextTip, Show_WhileShown_ChangesNothing) {
    tip.ShowTextTooltip(c_tipRect);
    tip.ShowTextTooltip({0, 0, 50, 10});
    EXPECT_EQ(tip.GetWindowRect(), CRect(110, 110, 260, 132));
}

TEST_F(TextTip, Show_WithoutAWindow_DoesNothing) {
    CPropTextTooltip none;
    none.ShowTextTooltip(c_tipRect);
    EXPECT_FALSE(none.IsShown());
}

TEST_F(TextTip, Timer_PointerInside_ShowsAndAsksForTheTextOnce) {
    ShowAtCursor();
    EXPECT_TRUE(tip.IsWindowVisible());
    EXPECT_EQ(::GetFocus(), frame.m_hWnd);
    EXPECT_TRUE(::GetUpdateRect(tip, nullptr, FALSE));
    EXPECT_CALLS(journal, "DrawTip 1042");
    PassTime();
    PassTime();
    EXPECT_TRUE(tip.IsWindowVisible());
    EXPECT_CALLS(journal, "DrawTip 1042");
    EXPECT_TRUE(::KillTimer(tip, 2));
}

TEST_F(TextTip, Timer_PointerBesideTheRowButInTheTip_StaysShown) {
    ShowAtCursor();
    PutCursor(149, 21);
    PassTime();
    EXPECT_TRUE(tip.IsWindowVisible());
    PutCursor(150, 21);
    PassTime();
    EXPECT_FALSE(tip.IsWindowVisible());
}

TEST_F(TextTip, Timer_PointerOutside_HidesStopsAndCanShowAgain) {
    ShowAtCursor();
    PutCursor(5, 60);
    PassTime();
    EXPECT_FALSE(tip.IsWindowVisible());
    EXPECT_FALSE(tip.IsShown());
    EXPECT_FALSE(::KillTimer(tip, 2));
    ShowAtCursor();
    EXPECT_TRUE(tip.IsWindowVisible());
    EXPECT_CALLS(journal, "DrawTip 1042", "DrawTip 1042");
}

TEST_F(TextTip, Timer_OfAnotherId_IsNotTheTips) {
    PutCursor(5, 5);
    tip.ShowTextTooltip(c_tipRect);
    ::SendMessageW(tip, WM_TIMER, 3, 0);
    EXPECT_FALSE(tip.IsWindowVisible());
}

TEST_F(TextTip, EraseBackground_IsAnsweredWithoutPainting) {
    EXPECT_EQ(::SendMessageW(tip, WM_ERASEBKGND, 0, 0), 1);
}

// The mouse buttons: the message itself and its place in screen coordinates.
class TextTipMouse : public TextTip, public ::testing::WithParamInterface<UINT> {
protected:
    void ExpectHandedOn(UINT message, WPARAM wParam) {
        EXPECT_FALSE(tip.IsWindowVisible());
        EXPECT_FALSE(tip.IsShown());
        EXPECT_EQ(::GetFocus(), owner.m_hWnd);
        MSG posted{};
        ASSERT_TRUE(::PeekMessageW(&posted, owner, message, message, PM_REMOVE));
        EXPECT_EQ(posted.wParam, wParam);
        EXPECT_EQ(CPoint(posted.lParam), CPoint(6, 7));
    }
};

TEST_P(TextTipMouse, Button_HidesAndReachesTheOwnerAtTheSameSpot) {
    ShowAtCursor();
    ::SendMessageW(tip, GetParam(), 3, MAKELPARAM(6, 7));
    ExpectHandedOn(GetParam(), 3);
}

INSTANTIATE_TEST_SUITE_P(Client, TextTipMouse, ::testing::Values(513u, 514u, 516u, 517u, 519u));

class TextTipFrame : public TextTipMouse {};

TEST_P(TextTipFrame, Button_HidesAndReachesTheOwnerAtTheSameSpot) {
    ShowAtCursor();
    CPoint point(6, 7);
    owner.ClientToScreen(&point);
    ::SendMessageW(tip, GetParam(), HTCAPTION, point.Packed());
    ExpectHandedOn(GetParam(), HTCAPTION);
}

INSTANTIATE_TEST_SUITE_P(Frame, TextTipFrame, ::testing::Values(161u, 162u, 164u, 165u));

}  // namespace
