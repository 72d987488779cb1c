#include "families/CPropNoDefaultWnd.h"

#include "families/CPropertyEditorText.h"
#include "tests/support/DrawnText.h"
#include "tests/unit/families/RowBench.h"

namespace {

class UnspecifiedHint : public kvtest::RowBench<CPropertyEditorText> {
protected:
    UnspecifiedHint() {
        row->m_allowUnspecified = true;
        row->m_unspecifiedText = L"none given";
    }

    static HWND Hint() { return ::FindWindowW(L"KvPeUnspecifiedHint", nullptr); }
    static bool IsShown() { return ::IsWindowVisible(Hint()) != FALSE; }
};

TEST_F(UnspecifiedHint, BeginEdit_ShowsTheHintBelowTheRow) {
    Open();
    ASSERT_TRUE(IsShown());
    CRect expected = window.GetWindowRect();
    expected.Offset(0, expected.Height());
    CRect bounds;
    ::GetWindowRect(Hint(), &bounds);
    EXPECT_EQ(bounds, expected);
    wchar_t text[40]{};
    ::GetWindowTextW(Hint(), text, 40);
    EXPECT_STREQ(text, L"none given");
    EXPECT_TRUE(Edit().HasFocus());
}

TEST_F(UnspecifiedHint, Window_IsAToolPopup) {
    Open();
    EXPECT_TRUE(static_cast<DWORD>(::GetWindowLongW(Hint(), GWL_STYLE)) & WS_POPUP);
    EXPECT_EQ(::GetWindowLongW(Hint(), GWL_EXSTYLE) & WS_EX_TOOLWINDOW, WS_EX_TOOLWINDOW);
}

TEST_F(UnspecifiedHint, NotAllowed_ThereIsNoHint) {
    row->m_allowUnspecified = false;
    Open();
    EXPECT_EQ(Hint(), nullptr);
    Edit().ShowUnspecifiedHint(true);
    EXPECT_EQ(Hint(), nullptr);
}

TEST_F(UnspecifiedHint, RowOffTheScreen_HintStaysAway) {
    frame.ShowWindow(SW_HIDE);
    Open();
    EXPECT_NE(Hint(), nullptr);
    EXPECT_FALSE(IsShown());
}

TEST_F(UnspecifiedHint, Hide_TakesItAway) {
    Open();
    Edit().ShowUnspecifiedHint(false);
    EXPECT_FALSE(IsShown());
    Edit().ShowUnspecifiedHint(true);
    EXPECT_TRUE(IsShown());
}

TEST_F(UnspecifiedHint, Hide_StopsTheTimer) {
    Open();
    EXPECT_TRUE(::KillTimer(Hint(), 2));
    Edit().ShowUnspecifiedHint(true);
    Edit().ShowUnspecifiedHint(false);
    EXPECT_FALSE(::KillTimer(Hint(), 2));
}

TEST_F(UnspecifiedHint, ShowAgain_OffersTheTextOfNow) {
    Open();
    row->m_unspecifiedText = L"not known";
    Edit().ShowUnspecifiedHint(true);
    wchar_t text[40]{};
    ::GetWindowTextW(Hint(), text, 40);
    EXPECT_STREQ(text, L"not known");
}

TEST_F(UnspecifiedHint, Timer_RowMoved_TakesItAway) {
    Open();
    frame.MoveWindow(130, 140, 300, 200);
    EXPECT_TRUE(kvtest::PumpUntil([] { return !IsShown(); }));
}

TEST_F(UnspecifiedHint, Timer_RowStays_LeavesIt) {
    Open();
    ::SendMessageW(Hint(), WM_TIMER, CPropNoDefaultWnd::TimerId, 0);
    EXPECT_TRUE(IsShown());
}

TEST_F(UnspecifiedHint, CheckPosition_RowResized_TakesItAway) {
    Open();
    window.MoveWindow(10, 10, 150, 20);
    Edit().CheckUnspecifiedHintPosition();
    EXPECT_FALSE(IsShown());
}

TEST_F(UnspecifiedHint, CheckPosition_RowStays_LeavesIt) {
    Open();
    Edit().CheckUnspecifiedHintPosition();
    EXPECT_TRUE(IsShown());
}

TEST_F(UnspecifiedHint, Click_WritesUnspecifiedAndGivesTheFocusToTheRow) {
    Open();
    ::SendMessageW(Hint(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(3, 3));
    EXPECT_CALLS(journal, "write 2 none given", "read");
    EXPECT_EQ(::GetFocus(), window.m_hWnd);
    EXPECT_FALSE(IsShown());
}

TEST_F(UnspecifiedHint, Click_EmptyText_DoesNothing) {
    row->m_unspecifiedText.Empty();
    Open();
    ::SendMessageW(Hint(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(3, 3));
    EXPECT_NO_CALLS(journal);
    EXPECT_TRUE(Edit().HasFocus());
}

TEST_F(UnspecifiedHint, Click_PaletteEndsTheRowMeanwhile_EndsInPeace) {
    Open();
    row->script.onWrite = [&] { EXPECT_EQ(row->Cleanup(), S_OK); };
    ::SendMessageW(Hint(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(3, 3));
    EXPECT_EQ(Hint(), nullptr);
}

TEST_F(UnspecifiedHint, Draw_UsesTheSelectionColours) {
    const auto drawn = kvtest::RecordText([](HDC dc) {
        CPropNoDefaultWnd::Draw(dc, {0, 0, 120, 20}, L"none given", nullptr);
    });
    ASSERT_EQ(drawn.size(), 1u);
    EXPECT_EQ(drawn[0].text, L"none given");
    EXPECT_EQ(drawn[0].textColor, ::GetSysColor(COLOR_HIGHLIGHTTEXT));
    EXPECT_EQ(drawn[0].backColor, ::GetSysColor(COLOR_HIGHLIGHT));
    EXPECT_EQ(drawn[0].origin.x, 0);
}

TEST_F(UnspecifiedHint, Draw_BoxWithoutFont_TakesTheSystemsFont17) {
    const auto fontOf = [](HFONT font) {
        const auto drawn = kvtest::RecordText([&](HDC dc) {
            CPropNoDefaultWnd::Draw(dc, {0, 0, 120, 20}, L"none given", font);
        });
        return drawn.empty() ? 0 : drawn[0].stockFont;
    };
    EXPECT_EQ(fontOf(nullptr), 17);
    EXPECT_EQ(fontOf(row->FontHandle()), -1);
}

TEST_F(UnspecifiedHint, Timer_LooksEvery100Milliseconds) {
    EXPECT_EQ(CPropNoDefaultWnd::TimerPeriod, 100U);
    EXPECT_EQ(CPropNoDefaultWnd::TimerId, 2U);
    Open();
    Edit().ShowUnspecifiedHint(true);
    const ULONGLONG start = ::GetTickCount64();
    frame.MoveWindow(130, 140, 300, 200);
    EXPECT_TRUE(kvtest::PumpUntil([] { return !IsShown(); }));
    EXPECT_GE(::GetTickCount64() - start, 80U) << "less the clock's step";
}

TEST_F(UnspecifiedHint, Paint_FillsTheWindow) {
    Open();
    ::UpdateWindow(Hint());
    const fw::WindowDc dc(Hint());
    EXPECT_EQ(::GetPixel(dc, 117, 2), ::GetSysColor(COLOR_HIGHLIGHT));
    EXPECT_EQ(::SendMessageW(Hint(), WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc.Get()), 0), 1);
}

}  // namespace
