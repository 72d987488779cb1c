#include "core/CPropTextTooltip.h"

#include <gtest/gtest.h>

#include "core/ChildIds.h"
#include "core/PrivateMessages.h"
#include "framework/base/DeviceContexts.h"
#include "framework/base/Handles.h"
#include "tests/support/ExpectCalls.h"
#include "tests/support/JournalNote.h"
#include "tests/support/MessagePump.h"
#include "tests/support/RowWarmUp.h"
#include "tests/support/WarmUp.h"

namespace {

const kvtest::WarmUpStep s_rows(&kvtest::WarmUpRows);
const fw::WindowClass s_windowClass{.name = L"KvTestTipOwner"};

/// Notes the requests to paint and the clicks that it gets.
class Owner : public CWnd {
public:
    ~Owner() override { DestroyWindow(); }

    HWND tipOfRequest = nullptr;

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_KVPE_DRAW_TIP) {
            kvtest::Note(L"draw", wParam);
            tipOfRequest = reinterpret_cast<HWND>(lParam);
            return 0;
        }
        const bool isButton = (message >= WM_LBUTTONDOWN && message <= WM_MBUTTONUP) ||
                              (message >= WM_NCLBUTTONDOWN && message <= WM_NCRBUTTONUP);
        if (isButton) {
            const CPoint point(lParam);
            kvtest::Note(L"button", message, wParam, point.x, point.y);
            return 0;
        }
        return CWnd::WindowProc(message, wParam, lParam);
    }
};

class TextTip : public ::testing::Test {
protected:
    TextTip() {
        owner.Create(s_windowClass, L"", WS_POPUP | WS_VISIBLE, {100, 100, 200, 120}, nullptr);
        EXPECT_TRUE(tip.Create(owner));
        tip.SetOwner(owner, nullptr);
        PutCursor({5, 5});
        kvtest::PumpWaiting();
        journal.Clear();
    }
    ~TextTip() override { kvtest::PumpWaiting(); }

    void PutCursor(CPoint point) {
        owner.ClientToScreen(&point);
        ::SetCursorPos(point.x, point.y);
    }
    void Tick() { ::SendMessageW(tip.m_hWnd, WM_TIMER, CPropTextTooltip::TimerId, 0); }
    void Show() {
        tip.ShowTextTooltip({0, 0, 150, 22});
        Tick();
        EXPECT_TRUE(tip.IsWindowVisible());
        journal.Clear();
    }

    kvhost::Journal journal;
    Owner owner;
    CPropTextTooltip tip;
};

TEST_F(TextTip, Window_IsAMarkedToolPopupWithTheArrow) {
    EXPECT_TRUE(CPropTextTooltip::IsTextTip(tip.m_hWnd));
    EXPECT_FALSE(CPropTextTooltip::IsTextTip(owner.m_hWnd));
    EXPECT_FALSE(CPropTextTooltip::IsTextTip(static_cast<HWND>(nullptr)));
    EXPECT_EQ(::GetWindowLongPtrW(tip.m_hWnd, GWLP_USERDATA), 1042);
    EXPECT_EQ(tip.GetExStyle() & WS_EX_TOOLWINDOW, 128u);
    EXPECT_TRUE(tip.GetStyle() & WS_POPUP);
    EXPECT_EQ(::GetClassLongPtrW(tip.m_hWnd, GCL_STYLE), 6147u);
    EXPECT_EQ(reinterpret_cast<HCURSOR>(::GetClassLongPtrW(tip.m_hWnd, GCLP_HCURSOR)),
              ::LoadCursorW(nullptr, IDC_ARROW));
    EXPECT_FALSE(tip.IsWindowVisible());
}

TEST_F(TextTip, IsTextTip_Context_IsThatOfTheTipsWindow) {
    const fw::WindowDc ofTip(tip.m_hWnd);
    const fw::WindowDc ofOwner(owner.m_hWnd);
    const fw::MemoryDc ofMemory(ofTip);
    EXPECT_TRUE(CPropTextTooltip::IsTextTip(ofTip.Get()));
    EXPECT_FALSE(CPropTextTooltip::IsTextTip(ofOwner.Get()));
    EXPECT_FALSE(CPropTextTooltip::IsTextTip(ofMemory.Get()));
}

TEST_F(TextTip, Show_PlacesTheWindowAndWaitsForTheTimer) {
    tip.ShowTextTooltip({0, 0, 150, 22});
    EXPECT_TRUE(tip.IsShown());
    EXPECT_FALSE(tip.IsWindowVisible());
    EXPECT_EQ(tip.GetWindowRect(), CRect(100, 100, 250, 122));
    EXPECT_TRUE(kvtest::PumpUntil([&] { return tip.IsWindowVisible() != FALSE; }));
    EXPECT_NE(::GetFocus(), tip.m_hWnd);
    EXPECT_TRUE(tip.GetExStyle() & WS_EX_TOPMOST);
}

TEST_F(TextTip, Show_WhileShown_KeepsTheFirstPlace) {
    tip.ShowTextTooltip({0, 0, 150, 22});
    tip.ShowTextTooltip({10, 10, 180, 40});
    EXPECT_EQ(tip.GetWindowRect(), CRect(100, 100, 250, 122));
}

TEST_F(TextTip, Show_WithoutAWindow_DoesNothing) {
    CPropTextTooltip other;
    other.ShowTextTooltip({0, 0, 150, 22});
    EXPECT_FALSE(other.IsShown());
    other.HideTextTooltip();
}

TEST_F(TextTip, FirstTick_AsksTheOwnerToPaintOnce) {
    tip.ShowTextTooltip({0, 0, 150, 22});
    Tick();
    EXPECT_CALLS(journal, "draw 1042");
    EXPECT_EQ(owner.tipOfRequest, tip.m_hWnd);
    Tick();
    kvtest::PumpWaiting();
    EXPECT_CALLS(journal, "draw 1042");
}

TEST_F(TextTip, Tick_CursorOutside_HidesAndMayShowAgain) {
    Show();
    PutCursor({151, 5});
    Tick();
    EXPECT_FALSE(tip.IsWindowVisible());
    EXPECT_FALSE(tip.IsShown());
    PutCursor({5, 5});
    tip.ShowTextTooltip({0, 0, 150, 22});
    Tick();
    EXPECT_TRUE(tip.IsWindowVisible());
    EXPECT_CALLS(journal, "draw 1042");
}

TEST_F(TextTip, Tick_CursorBesideTheOwnerInsideTheTip_StaysShown) {
    Show();
    PutCursor({140, 21});
    Tick();
    EXPECT_TRUE(tip.IsWindowVisible());
}

TEST_F(TextTip, Tick_OfAnotherTimer_IsIgnored) {
    tip.ShowTextTooltip({0, 0, 150, 22});
    ::SendMessageW(tip.m_hWnd, WM_TIMER, 77, 0);
    EXPECT_FALSE(tip.IsWindowVisible());
}

TEST_F(TextTip, Hide_ForgetsTheRectangle) {
    Show();
    tip.HideTextTooltip();
    EXPECT_FALSE(tip.IsWindowVisible());
    Tick();
    EXPECT_FALSE(tip.IsWindowVisible());
}

TEST_F(TextTip, EraseBackground_IsAnsweredWithoutPainting) {
    const fw::WindowDc screen(nullptr);
    const fw::MemoryDc dc(screen);
    EXPECT_EQ(::SendMessageW(tip.m_hWnd, WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc.Get()), 0), 1);
}

TEST_F(TextTip, Paint_FramesTheGround) {
    Show();
    const fw::WindowDc dc(tip.m_hWnd);
    EXPECT_EQ(::GetPixel(dc, 75, 0), 0x868686u);
    EXPECT_EQ(::GetPixel(dc, 0, 11), 0x868686u);
    EXPECT_EQ(::GetPixel(dc, 75, 11), ::GetSysColor(COLOR_INFOBK));
}

struct Handed {
    UINT message;
    bool isFrame;
};

class TextTipClick : public TextTip, public ::testing::WithParamInterface<Handed> {};

TEST_P(TextTipClick, AnyButton_HidesAndReachesTheOwnerAtTheSameSpot) {
    Show();
    CPoint point(7, 8);
    if (GetParam().isFrame) {
        ::ClientToScreen(tip.m_hWnd, &point);
    }
    ::SendMessageW(tip.m_hWnd, GetParam().message, 3, point.Packed());
    EXPECT_FALSE(tip.IsWindowVisible());
    EXPECT_EQ(::GetFocus(), owner.m_hWnd);
    kvtest::PumpWaiting();
    const std::string expected = "button " + std::to_string(GetParam().message) + " 3 7 8";
    EXPECT_CALLS(journal, expected);
}

INSTANTIATE_TEST_SUITE_P(Buttons, TextTipClick,
                         ::testing::Values(Handed{513, false}, Handed{514, false}, Handed{516, false},
                                           Handed{517, false}, Handed{519, false}, Handed{161, true},
                                           Handed{162, true}, Handed{164, true}, Handed{165, true}));

TEST_F(TextTip, ClickWithoutOwner_HidesAndReachesNobody) {
    tip.SetOwner(nullptr, nullptr);
    ::ShowWindow(tip.m_hWnd, SW_SHOWNOACTIVATE);
    kvtest::PumpWaiting();
    journal.Clear();
    ::SendMessageW(tip.m_hWnd, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(3, 4));
    EXPECT_FALSE(::IsWindowVisible(tip.m_hWnd));
    MSG message;
    EXPECT_FALSE(::PeekMessageW(&message, nullptr, WM_LBUTTONDOWN, WM_LBUTTONDOWN, PM_REMOVE))
        << "posted to the thread";
    EXPECT_NO_CALLS(journal);
}

TEST(TextTipPlacement, FitIntoDesktop_FittingRectangle_Stays) {
    EXPECT_EQ(CPropTextTooltip::FitIntoDesktop({10, 20, 110, 40}, {0, 0, 800, 600}), CRect(10, 20, 110, 40));
}

TEST(TextTipPlacement, FitIntoDesktop_TallerAndWider_IsCutToTheDesktopsSize) {
    EXPECT_EQ(CPropTextTooltip::FitIntoDesktop({0, 0, 2000, 3000}, {0, 0, 800, 600}), CRect(0, 0, 800, 600));
}

TEST(TextTipPlacement, FitIntoDesktop_BelowTheDesktop_MovesUp) {
    EXPECT_EQ(CPropTextTooltip::FitIntoDesktop({10, 590, 110, 612}, {0, 0, 800, 600}),
              CRect(10, 578, 110, 600));
}

TEST(TextTipPlacement, FitIntoDesktop_AboveTheDesktop_MovesDown) {
    EXPECT_EQ(CPropTextTooltip::FitIntoDesktop({10, -9, 110, 13}, {0, 0, 800, 600}), CRect(10, 0, 110, 22));
}

TEST(TextTipPlacement, FitIntoDesktop_BesideTheDesktop_IsNotMovedSideways) {
    EXPECT_EQ(CPropTextTooltip::FitIntoDesktop({750, 20, 950, 40}, {0, 0, 800, 600}),
              CRect(750, 20, 950, 40));
}

}  // namespace
