#include "families/CPropertyEditorText.h"
#include "tests/support/SentMessages.h"
#include "tests/unit/families/RowBench.h"

namespace {

class EditBoxMessages : public kvtest::RowBench<CPropertyEditorText> {
protected:
    BOOL PreTranslate(UINT message) {
        MSG posted{.hwnd = Edit().m_hWnd,
                   .message = message,
                   .wParam = 0,
                   .lParam = MAKELPARAM(4, 4),
                   .time = 0,
                   .pt = {}};
        return Edit().PreTranslateMessage(&posted);
    }

    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        return ::SendMessageW(Edit().m_hWnd, message, wParam, lParam);
    }

    // The pixels where the system's caret stands in the box.
    std::vector<COLORREF> CaretPixels() {
        GUITHREADINFO info{};
        info.cbSize = sizeof info;
        EXPECT_TRUE(::GetGUIThreadInfo(::GetCurrentThreadId(), &info));
        EXPECT_EQ(info.hwndCaret, Edit().m_hWnd);
        std::vector<COLORREF> pixels;
        const fw::WindowDc dc(Edit().m_hWnd);
        for (LONG y = info.rcCaret.top; y < info.rcCaret.bottom; ++y) {
            pixels.push_back(::GetPixel(dc, info.rcCaret.left, y));
        }
        EXPECT_FALSE(pixels.empty());
        return pixels;
    }

    static HWND Hint() { return ::FindWindowW(L"KvPeUnspecifiedHint", nullptr); }
};

TEST_F(EditBoxMessages, LeftButton_Writable_ShowsTheCaretAndReachesTheBox) {
    Open();
    EXPECT_FALSE(PreTranslate(WM_LBUTTONUP));
    EXPECT_FALSE(Edit().IsCaretShown());
    EXPECT_FALSE(PreTranslate(WM_LBUTTONDOWN));
    EXPECT_TRUE(Edit().IsCaretShown());
}

TEST_F(EditBoxMessages, LeftButton_ReadOnly_IsSwallowed) {
    Open();
    Edit().SetReadOnly(TRUE);
    EXPECT_TRUE(PreTranslate(WM_LBUTTONDOWN));
    EXPECT_TRUE(PreTranslate(WM_LBUTTONUP));
    EXPECT_FALSE(Edit().IsCaretShown());
}

TEST_F(EditBoxMessages, MessageOfAnotherWindow_IsLeftAlone) {
    Open();
    MSG posted{
        .hwnd = window.m_hWnd, .message = WM_KEYDOWN, .wParam = VK_RETURN, .lParam = 1, .time = 0, .pt = {}};
    EXPECT_FALSE(Edit().PreTranslateMessage(&posted));
    EXPECT_NO_CALLS(journal);
}

TEST_F(EditBoxMessages, ResetSelection_ReadOnly_SelectsNothing) {
    Open();
    Edit().SetSel(0, -1);
    Edit().SetReadOnly(TRUE);
    Edit().ResetSelection();
    int start = -1;
    int end = -1;
    Edit().GetSel(start, end);
    EXPECT_EQ(start, end);
    EXPECT_FALSE(Edit().IsCaretShown());
}

TEST_F(EditBoxMessages, ResetSelection_SelectsAndThenScrollsToTheCaret) {
    Open();
    const kvtest::SentMessages sent;
    Edit().ResetSelection();
    EXPECT_EQ(sent.To(Edit().m_hWnd, {EM_SETSEL, EM_SCROLLCARET}),
              (std::vector<kvtest::SentMessage>{{EM_SETSEL, 0, -1}, {EM_SCROLLCARET, 0, 0}}));
    Edit().SetReadOnly(TRUE);
    Edit().ResetSelection();
    const auto all = sent.To(Edit().m_hWnd, {EM_SETSEL, EM_SCROLLCARET});
    ASSERT_EQ(all.size(), 4U);
    EXPECT_EQ(static_cast<int>(all[2].wParam), -1);
    EXPECT_EQ(all[2].lParam, 0);
    EXPECT_EQ(all[3].message, static_cast<UINT>(EM_SCROLLCARET));
}

TEST_F(EditBoxMessages, Escape_BringsTheBeginOfTheStoredTextIntoSight) {
    Open();
    Type(L"a text that is by far too long for a row of this width");
    const kvtest::SentMessages sent;
    Key(VK_ESCAPE);
    EXPECT_FALSE(sent.To(Edit().m_hWnd, {EM_SCROLLCARET}).empty());
}

TEST_F(EditBoxMessages, NewBox_GetsTheRowsFontAndIsToRepaint) {
    const kvtest::SentMessages sent;
    Open();
    EXPECT_EQ(
        sent.To(Edit().m_hWnd, {WM_SETFONT}),
        (std::vector<kvtest::SentMessage>{{WM_SETFONT, reinterpret_cast<WPARAM>(row->FontHandle()), TRUE}}));
}

TEST_F(EditBoxMessages, PutFont_HandsItToTheBoxWhichRepaints) {
    Open();
    fw::ComPtr<IUnknown> former;
    ASSERT_EQ(row->Handle_get_Font(former.Put()), S_OK);
    fw::ComPtr<IFont> larger;
    ASSERT_EQ(former.As<IFont>()->Clone(larger.Put()), S_OK);
    ASSERT_EQ(larger->put_Size({.int64 = 200000}), S_OK);
    Edit().UpdateWindow();
    const kvtest::SentMessages sent;
    EXPECT_EQ(row->Handle_put_Font(larger.Get()), S_OK);
    const auto told = sent.To(Edit().m_hWnd, {WM_SETFONT});
    ASSERT_EQ(told.size(), 1U);
    EXPECT_EQ(told[0].wParam, reinterpret_cast<WPARAM>(row->FontHandle()));
    EXPECT_EQ(told[0].lParam, TRUE);
    EXPECT_TRUE(::GetUpdateRect(Edit().m_hWnd, nullptr, FALSE));
}

TEST_F(EditBoxMessages, Caret_IsSeenOnlyAfterTheUserHasBegun) {
    Open();
    Edit().SetSel(0, 0);
    Edit().UpdateWindow();
    const auto hidden = CaretPixels();
    PreTranslate(WM_LBUTTONDOWN);
    EXPECT_NE(CaretPixels(), hidden);
    Edit().HideTheCaret();
    EXPECT_EQ(CaretPixels(), hidden);
}

TEST_F(EditBoxMessages, Caret_HiddenSeveralTimes_OneKeyShowsIt) {
    Open();
    Edit().ResetSelection();
    Edit().ResetSelection();
    Edit().SetSel(0, 0);
    Edit().UpdateWindow();
    const auto hidden = CaretPixels();
    PreTranslate(WM_KEYDOWN);
    EXPECT_NE(CaretPixels(), hidden);
}

TEST_F(EditBoxMessages, SetFocus_CaretAsTheUserLeftIt) {
    Open();
    Edit().SetSel(0, 0);
    Edit().UpdateWindow();
    const auto hidden = CaretPixels();
    row->m_readOnly = TRUE;  // so that the loss of the focus commits nothing
    Focus(frame);
    Edit().SetFocus();
    Edit().SetSel(0, 0);
    Edit().UpdateWindow();
    EXPECT_EQ(CaretPixels(), hidden);
    PreTranslate(WM_KEYDOWN);
    Edit().UpdateWindow();
    Focus(frame);
    Edit().SetFocus();
    EXPECT_TRUE(Edit().IsCaretShown());
    EXPECT_NE(CaretPixels(), hidden);
}

TEST_F(EditBoxMessages, KillFocus_InEdit_Commits) {
    Open();
    Type(L"beta");
    Focus(frame);
    EXPECT_CALLS(journal, "write 0 beta", "read");
}

TEST_F(EditBoxMessages, KillFocus_InEditAfterClick_Commits) {
    Open();
    row->m_state = EditState_InEditAfterClick;
    Type(L"beta");
    Focus(frame);
    EXPECT_CALLS(journal, "write 0 beta", "read");
}

TEST_F(EditBoxMessages, KillFocus_NotInEdit_WritesNothing) {
    Open();
    Type(L"beta");
    row->m_state = EditState_Shown;
    Focus(frame);
    EXPECT_NO_CALLS(journal);
}

TEST_F(EditBoxMessages, KillFocus_PaletteEndsTheRowMeanwhile_EndsInPeace) {
    Open();
    Type(L"beta");
    row->script.onWrite = [&] { EXPECT_EQ(row->Cleanup(), S_OK); };
    Focus(frame);
    EXPECT_FALSE(row->m_edit);
}

TEST_F(EditBoxMessages, KillFocus_ToAnotherWindow_HidesTheHint) {
    row->m_allowUnspecified = true;
    row->m_unspecifiedText = L"none given";
    Open();
    ASSERT_TRUE(::IsWindowVisible(Hint()));
    Focus(frame);
    EXPECT_FALSE(::IsWindowVisible(Hint()));
}

TEST_F(EditBoxMessages, KillFocus_ToTheHint_LeavesTheHint) {
    row->m_allowUnspecified = true;
    row->m_unspecifiedText = L"none given";
    Open();
    Send(WM_KILLFOCUS, reinterpret_cast<WPARAM>(Hint()));
    EXPECT_TRUE(::IsWindowVisible(Hint()));
}

TEST_F(EditBoxMessages, SetCursor_ClientArea_ArrowOrBeam) {
    Open();
    const LPARAM overClient = MAKELPARAM(HTCLIENT, WM_MOUSEMOVE);
    EXPECT_EQ(Send(WM_SETCURSOR, reinterpret_cast<WPARAM>(Edit().m_hWnd), overClient), TRUE);
    EXPECT_EQ(::GetCursor(), ::LoadCursorW(nullptr, MAKEINTRESOURCEW(32513)));
    Edit().SetReadOnly(TRUE);
    EXPECT_EQ(Send(WM_SETCURSOR, reinterpret_cast<WPARAM>(Edit().m_hWnd), overClient), TRUE);
    EXPECT_EQ(::GetCursor(), ::LoadCursorW(nullptr, MAKEINTRESOURCEW(32512)));
}

TEST_F(EditBoxMessages, SetCursor_Elsewhere_IsTheSystems) {
    Open();
    const HCURSOR wait = ::LoadCursorW(nullptr, IDC_SIZEALL);
    ::SetCursor(wait);
    Edit().SetReadOnly(TRUE);
    Send(WM_SETCURSOR, reinterpret_cast<WPARAM>(Edit().m_hWnd), MAKELPARAM(HTLEFT, WM_MOUSEMOVE));
    EXPECT_NE(::GetCursor(), ::LoadCursorW(nullptr, IDC_ARROW));
}

TEST_F(EditBoxMessages, GetDlgCode_AsksForAllKeysOnTopOfItsOwn) {
    Open();
    const LRESULT code = Send(WM_GETDLGCODE);
    EXPECT_TRUE(code & DLGC_WANTALLKEYS);
    EXPECT_TRUE(code & DLGC_WANTCHARS);
}

TEST_F(EditBoxMessages, Wheel_GoesToTheRow) {
    Open();
    Send(WM_MOUSEWHEEL, MAKEWPARAM(0, -120), 0);
    EXPECT_CALLS(journal, "wheel -120");
}

TEST_F(EditBoxMessages, RButtonDown_ReadOnly_GoesToThePaletteInParentCoordinates) {
    Open();
    Edit().MoveWindow(5, 2, 100, 18);
    Edit().SetReadOnly(TRUE);
    Send(WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(10, 3));
    const std::string expected = "RButtonDown 2 " + std::to_string(MAKELPARAM(15, 5));
    EXPECT_CALLS(journal, expected);
}

TEST_F(EditBoxMessages, RButtonDown_Writable_IsTheBoxs) {
    Open();
    Send(WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(10, 3));
    EXPECT_NO_CALLS(journal);
}

TEST_F(EditBoxMessages, MButtonDown_GoesToThePaletteInParentCoordinates) {
    Open();
    Edit().MoveWindow(5, 2, 100, 18);
    Send(WM_MBUTTONDOWN, MK_MBUTTON, MAKELPARAM(10, 3));
    const std::string expected = "MButtonDown 16 " + std::to_string(MAKELPARAM(15, 5));
    EXPECT_CALLS(journal, expected);
}

TEST_F(EditBoxMessages, ContextMenu_ReadOnly_GoesToThePaletteInParentCoordinates) {
    Open();
    Edit().SetReadOnly(TRUE);
    CPoint point(7, 9);
    ::ClientToScreen(window, &point);
    Send(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(Edit().m_hWnd), point.Packed());
    const std::string expected = "RButtonDown 0 " + std::to_string(MAKELPARAM(7, 9));
    EXPECT_CALLS(journal, expected);
}

TEST_F(EditBoxMessages, ContextMenu_ReadOnlyForAnotherWindow_IsDropped) {
    Open();
    Edit().SetReadOnly(TRUE);
    Send(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(window.m_hWnd), MAKELPARAM(7, 9));
    EXPECT_NO_CALLS(journal);
}

TEST_F(EditBoxMessages, ContextMenu_Writable_IsTheBoxsAndRepaints) {
    Open();
    ::ValidateRect(Edit().m_hWnd, nullptr);
    // The box's menu runs a loop of its own, which the posted key ends.
    ::PostMessageW(Edit().m_hWnd, WM_KEYDOWN, VK_ESCAPE, 1);
    CPoint point(7, 9);
    ::ClientToScreen(window, &point);
    Send(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(Edit().m_hWnd), point.Packed());
    EXPECT_TRUE(::GetUpdateRect(Edit().m_hWnd, nullptr, FALSE));
    EXPECT_EQ(kvtest::CallsOnly(journal, {"RButtonDown"}), kvtest::CallLines{});
}

TEST_F(EditBoxMessages, LButtonDblClk_ReadOnly_IsSwallowed) {
    Open();
    Edit().SetSel(0, 0);
    Edit().SetReadOnly(TRUE);
    Send(WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(6, 6));
    int start = -1;
    int end = -1;
    Edit().GetSel(start, end);
    EXPECT_EQ(start, end);
    Edit().SetReadOnly(FALSE);
    Send(WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(6, 6));
    Edit().GetSel(start, end);
    EXPECT_NE(start, end);
    ::ReleaseCapture();
}

}  // namespace
