#include "families/CPropertyEditorText.h"
#include "tests/support/DrawnText.h"
#include "tests/unit/families/RowBench.h"

namespace {

class EditRowShell : public kvtest::RowBench<CPropertyEditorText> {
protected:
    std::vector<kvtest::DrawnText> Paint(const RECTL& bounds) {
        return kvtest::RecordText([&](HDC dc) {
            ATL_DRAWINFO info;
            info.hdcDraw = dc;
            info.prcBounds = &bounds;
            EXPECT_EQ(row->Handle_OnDraw(info), S_OK);
        });
    }

    void AllowUnspecified() {
        row->m_allowUnspecified = true;
        row->m_unspecifiedText = L"none given";
    }

    static HWND Hint() { return ::FindWindowW(L"KvPeUnspecifiedHint", nullptr); }
};

TEST_F(EditRowShell, Draw_Writable_UsesTheRowsColours) {
    EXPECT_EQ(row->Handle_put_ForeColor(RGB(1, 2, 3)), S_OK);
    EXPECT_EQ(row->Handle_put_BackColor(RGB(4, 5, 6)), S_OK);
    const auto drawn = Paint({0, 0, 120, 20});
    ASSERT_EQ(drawn.size(), 2u);
    EXPECT_EQ(drawn[0].backColor, RGB(4, 5, 6));
    EXPECT_EQ(CRect(drawn[0].bounds), CRect(0, 0, 120, 20));
    EXPECT_EQ(drawn[1].text, L"alpha");
    EXPECT_EQ(drawn[1].textColor, RGB(1, 2, 3));
    EXPECT_EQ(drawn[1].backMode, TRANSPARENT);
}

TEST_F(EditRowShell, Draw_ReadOnly_UsesTheReadOnlyColours) {
    row->m_readOnly = TRUE;
    EXPECT_EQ(row->Handle_put_ReadOnlyForeColor(RGB(7, 8, 9)), S_OK);
    EXPECT_EQ(row->Handle_put_ReadOnlyBackColor(RGB(10, 11, 12)), S_OK);
    const auto drawn = Paint({0, 0, 120, 20});
    ASSERT_EQ(drawn.size(), 2u);
    EXPECT_EQ(drawn[0].backColor, RGB(10, 11, 12));
    EXPECT_EQ(drawn[1].textColor, RGB(7, 8, 9));
}

TEST_F(EditRowShell, Draw_Afterwards_TheContextIsAsBefore) {
    const fw::WindowDc screen(nullptr);
    const fw::MemoryDc dc(screen);
    const HGDIOBJ font = ::GetCurrentObject(dc, OBJ_FONT);
    const COLORREF color = ::GetTextColor(dc);
    const int mode = ::GetBkMode(dc);
    EXPECT_EQ(row->Handle_put_ForeColor(RGB(1, 2, 3)), S_OK);
    const RECTL bounds{0, 0, 120, 20};
    ATL_DRAWINFO info;
    info.hdcDraw = dc;
    info.prcBounds = &bounds;
    EXPECT_EQ(row->Handle_OnDraw(info), S_OK);
    EXPECT_EQ(::GetCurrentObject(dc, OBJ_FONT), font);
    EXPECT_EQ(::GetTextColor(dc), color);
    EXPECT_EQ(::GetBkMode(dc), mode);
}

TEST_F(EditRowShell, DoVerbHide_InEdit_CommitsAndHides) {
    Open();
    Type(L"beta");
    EXPECT_EQ(row->Handle_DoVerbHide(), S_OK);
    EXPECT_CALLS(journal, "write 0 beta", "read");
    EXPECT_EQ(row->m_state, EditState_Shown);
    EXPECT_FALSE(Edit().IsWindowVisible());
}

TEST_F(EditRowShell, DoVerbHide_KeepEditOnHide_HidesOnly) {
    Open();
    Type(L"beta");
    row->m_keepEditOnHide = TRUE;
    Edit().SetReadOnly(TRUE);  // so that the loss of the focus commits nothing
    EXPECT_EQ(row->Handle_DoVerbHide(), S_OK);
    EXPECT_NO_CALLS(journal);
    EXPECT_EQ(row->m_state, EditState_InEdit);
    EXPECT_FALSE(Edit().IsWindowVisible());
    EXPECT_EQ(row->Handle_DoVerbShow(), S_OK);
    EXPECT_TRUE(Edit().IsWindowVisible());
}

TEST_F(EditRowShell, DoVerbHide_UnspecifiedAllowed_HidesTheHint) {
    AllowUnspecified();
    Open();
    EXPECT_TRUE(::IsWindowVisible(Hint()));
    EXPECT_EQ(row->Handle_DoVerbHide(), S_OK);
    EXPECT_FALSE(::IsWindowVisible(Hint()));
}

TEST_F(EditRowShell, DoVerbHide_NeverShown_IsShownAfterwards) {
    EXPECT_EQ(row->Handle_DoVerbHide(), S_OK);
    EXPECT_EQ(row->m_state, EditState_Shown);
}

TEST_F(EditRowShell, DoVerbShow_NotInEdit_LeavesTheBoxHidden) {
    Open();
    EXPECT_EQ(row->Handle_DoVerbHide(), S_OK);
    EXPECT_EQ(row->Handle_DoVerbShow(), S_OK);
    EXPECT_FALSE(Edit().IsWindowVisible());
}

TEST_F(EditRowShell, DoVerbShow_InEdit_BringsTheBoxToTheTop) {
    Open();
    CWnd sibling;
    sibling.Create(s_windowClass, L"", WS_CHILD | WS_VISIBLE, c_clientRect, window);
    ::SetWindowPos(sibling.m_hWnd, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    ASSERT_EQ(::GetTopWindow(window), sibling.m_hWnd);
    ::ValidateRect(Edit().m_hWnd, nullptr);
    EXPECT_EQ(row->Handle_DoVerbShow(), S_OK);
    EXPECT_EQ(::GetTopWindow(window), Edit().m_hWnd);
    EXPECT_TRUE(::GetUpdateRect(Edit().m_hWnd, nullptr, FALSE));
}

TEST_F(EditRowShell, UIDeactivate_InEdit_CommitsAndHides) {
    AllowUnspecified();
    Open();
    Type(L"beta");
    EXPECT_EQ(row->Handle_UIDeactivate(), S_OK);
    EXPECT_CALLS(journal, "write 0 beta", "read");
    EXPECT_EQ(row->m_state, EditState_Shown);
    EXPECT_FALSE(Edit().IsWindowVisible());
    EXPECT_FALSE(::IsWindowVisible(Hint()));
}

TEST_F(EditRowShell, UIDeactivate_NeverInEdit_IsShownAfterwards) {
    EXPECT_EQ(row->Handle_UIDeactivate(), S_OK);
    EXPECT_EQ(row->m_state, EditState_Shown);
}

TEST_F(EditRowShell, LButtonDown_IsAClickAndStaysUnhandled) {
    row->m_state = EditState_Shown;
    BOOL handled = TRUE;
    EXPECT_EQ(row->Handle_OnLButtonDown(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(3, 4), handled), 0);
    EXPECT_FALSE(handled);
    EXPECT_EQ(row->m_state, EditState_InEditAfterClick);
}

TEST_F(EditRowShell, LButtonDblClk_WithABox_BeginsTheEdit) {
    Open();
    ASSERT_EQ(row->Handle_UIDeactivate(), S_OK);
    BOOL handled = TRUE;
    EXPECT_EQ(row->Handle_OnLButtonDblClk(WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(3, 4), handled), 0);
    EXPECT_TRUE(handled);
    EXPECT_EQ(row->m_state, EditState_InEditAfterClick);
    EXPECT_TRUE(Edit().IsWindowVisible());
}

TEST_F(EditRowShell, LButtonDblClk_WithoutABox_IsLeftToThePalette) {
    BOOL handled = TRUE;
    EXPECT_EQ(row->Handle_OnLButtonDblClk(WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(3, 4), handled), 0);
    EXPECT_FALSE(handled);
    EXPECT_FALSE(row->m_edit);
}

TEST_F(EditRowShell, RButtonDown_InEdit_GoesToTheBoxAndIsAClick) {
    Open();
    Edit().MoveWindow(5, 2, 100, 18);
    BOOL handled = FALSE;
    EXPECT_EQ(row->Handle_OnRButtonDown(WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(30, 12), handled), 0);
    EXPECT_TRUE(handled);
    EXPECT_CALLS(journal, "Click");
    MSG posted{};
    ASSERT_TRUE(::PeekMessageW(&posted, Edit().m_hWnd, WM_RBUTTONDOWN, WM_RBUTTONDOWN, PM_REMOVE));
    EXPECT_EQ(posted.wParam, static_cast<WPARAM>(MK_RBUTTON));
    EXPECT_EQ(CPoint(posted.lParam), CPoint(25, 10));
}

TEST_F(EditRowShell, RButtonDown_NotInEdit_IsLeftToThePalette) {
    BOOL handled = TRUE;
    EXPECT_EQ(row->Handle_OnRButtonDown(WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(30, 12), handled), 0);
    EXPECT_FALSE(handled);
    EXPECT_NO_CALLS(journal);
}

TEST_F(EditRowShell, EditColours_BoxTakesTheRowsColours) {
    EXPECT_EQ(row->Handle_put_ForeColor(RGB(1, 2, 3)), S_OK);
    Open();
    const fw::WindowDc dc(Edit().m_hWnd);
    const auto brush = ::SendMessageW(window, WM_CTLCOLOREDIT, reinterpret_cast<WPARAM>(dc.Get()),
                                      reinterpret_cast<LPARAM>(Edit().m_hWnd));
    EXPECT_NE(brush, 0);
    EXPECT_EQ(::GetTextColor(dc), RGB(1, 2, 3));
}

}  // namespace
