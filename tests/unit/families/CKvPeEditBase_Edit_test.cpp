#include "core/ChildIds.h"
#include "families/CPropertyEditorText.h"
#include "tests/support/RowFont.h"
#include "tests/unit/families/RowBench.h"

namespace {

class EditRowEdit : public kvtest::RowBench<CPropertyEditorText> {
protected:
    // The styles that we ask for, less what the system adds or changes with the window's state.
    // The formatting rectangle that the box is told; what it makes of it is the system's.
    CRect RectTold(const RECT& bounds) {
        CRect told;
        ::SetWindowSubclass(Edit().m_hWnd, &NoteRect, 1, reinterpret_cast<DWORD_PTR>(&told));
        EXPECT_EQ(row->Handle_SetObjectRects(&bounds, &bounds), S_OK);
        ::RemoveWindowSubclass(Edit().m_hWnd, &NoteRect, 1);
        return told;
    }
    int LineHeight() {
        const fw::WindowDc dc(Edit().m_hWnd);
        const fw::ScopedSelect font(dc, row->FontHandle());
        SIZE extent{};
        ::GetTextExtentPoint32W(dc, L"alpha", 5, &extent);
        return extent.cy;
    }
    static LRESULT CALLBACK NoteRect(HWND box, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                     DWORD_PTR told) {
        if (message == EM_SETRECT) {
            *reinterpret_cast<CRect*>(told) = *reinterpret_cast<const RECT*>(lParam);
        }
        return ::DefSubclassProc(box, message, wParam, lParam);
    }

    DWORD EditStyle() { return Edit().GetStyle() & ~static_cast<DWORD>(WS_VISIBLE | WS_CLIPSIBLINGS); }
};

TEST_F(EditRowEdit, BeginEdit_FirstTime_MakesTheBox) {
    row->m_state = EditState_Shown;
    EXPECT_EQ(row->BeginEdit(c_clientRect), S_OK);
    EXPECT_EQ(Edit().GetDlgCtrlID(), 1038);
    EXPECT_EQ(EditStyle(), 0x40010084u);
    EXPECT_EQ(row->m_childWindow, row->m_edit.get());
    EXPECT_EQ(Edit().GetParent(), window.m_hWnd);
    EXPECT_EQ(Edit().GetWindowText(), L"alpha");
    EXPECT_EQ(Edit().GetFont(), row->FontHandle());
    EXPECT_TRUE(Edit().IsWindowVisible());
    EXPECT_TRUE(Edit().HasFocus());
    EXPECT_EQ(row->m_state, EditState_InEdit);
    EXPECT_FALSE(Edit().IsReadOnly());
}

TEST_F(EditRowEdit, BeginEdit_RowElsewhere_BoxLiesAtTheOrigin) {
    EXPECT_EQ(row->BeginEdit({30, 40, 150, 60}), S_OK);
    CRect bounds = Edit().GetWindowRect();
    window.ScreenToClient(&bounds);
    EXPECT_EQ(bounds, CRect(0, 0, 120, 20));
}

TEST_F(EditRowEdit, BeginEdit_NewBox_AllIsSelectedAndTheCaretIsAway) {
    Open();
    int start = -1;
    int end = -1;
    Edit().GetSel(start, end);
    EXPECT_EQ(start, 0);
    EXPECT_EQ(end, 5);
    EXPECT_FALSE(Edit().IsCaretShown());
}

TEST_F(EditRowEdit, BeginEdit_NoShellWindow_FailsAndMakesNoBox) {
    shell.window = nullptr;
    EXPECT_EQ(row->BeginEdit(c_clientRect), E_FAIL);
    EXPECT_FALSE(row->m_edit);
    shell.hasWindowObject = false;
    EXPECT_EQ(row->BeginEdit(c_clientRect), E_FAIL);
    EXPECT_EQ(row->m_childWindow, nullptr);
    EXPECT_EQ(row->m_state, EditState_NeverShown);
}

TEST_F(EditRowEdit, BeginEdit_BoxItselfReadOnly_MakesAReadOnlyBoxInAWritableRow) {
    row->m_editBoxReadOnly = true;
    EXPECT_EQ(row->BeginEdit(c_clientRect), S_OK);
    EXPECT_EQ(EditStyle(), 0x40010884u);
    EXPECT_TRUE(Edit().IsReadOnly());
    EXPECT_TRUE(Edit().HasFocus());
    int start = -1;
    int end = -1;
    Edit().GetSel(start, end);
    EXPECT_EQ(start, end);
}

TEST_F(EditRowEdit, BeginEdit_ReadOnlyWithoutBox_Stops) {
    row->m_readOnly = TRUE;
    EXPECT_EQ(row->BeginEdit(c_clientRect), S_OK);
    EXPECT_FALSE(row->m_edit);
    EXPECT_EQ(row->m_state, EditState_NeverShown);
}

TEST_F(EditRowEdit, BeginEdit_RowTurnedReadOnly_BoxShowsTheTextReadOnly) {
    Open();
    row->m_readOnly = TRUE;
    Type(L"typed");
    EXPECT_EQ(row->BeginEdit(c_clientRect), S_OK);
    EXPECT_EQ(Edit().GetWindowText(), L"alpha");
    EXPECT_TRUE(Edit().IsReadOnly());
    row->m_readOnly = FALSE;
    EXPECT_EQ(row->BeginEdit(c_clientRect), S_OK);
    EXPECT_FALSE(Edit().IsReadOnly());
}

TEST_F(EditRowEdit, BeginEdit_ReadOnlyRowWithReadOnlyBox_LeavesTheBox) {
    row->m_editBoxReadOnly = true;
    Open();
    row->m_readOnly = TRUE;
    Type(L"typed");
    EXPECT_EQ(row->BeginEdit(c_clientRect), S_OK);
    EXPECT_EQ(Edit().GetWindowText(), L"typed");
}

TEST_F(EditRowEdit, BeginEdit_InEdit_KeepsTypedTextAndTakesTheFocus) {
    Open();
    Type(L"typed");
    row->m_readOnly = TRUE;  // so that the loss of the focus commits nothing
    Focus(frame);
    row->m_readOnly = FALSE;
    EXPECT_EQ(row->BeginEdit(c_clientRect), S_OK);
    EXPECT_EQ(Edit().GetWindowText(), L"typed");
    EXPECT_TRUE(Edit().HasFocus());
}

TEST_F(EditRowEdit, BeginEdit_PresetBoxExists_IsUsedForTheEdit) {
    row->PresetText(L"preset");
    const HWND preset = Edit().m_hWnd;
    EXPECT_EQ(Edit().GetDlgCtrlID(), 4321);
    EXPECT_FALSE(Edit().GetStyle() & WS_VISIBLE);
    EXPECT_EQ(row->BeginEdit(c_clientRect), S_OK);
    EXPECT_EQ(Edit().m_hWnd, preset);
    EXPECT_EQ(Edit().GetWindowText(), L"alpha");
    EXPECT_EQ(Edit().GetClientRect(), CRect(c_clientRect));
}

TEST_F(EditRowEdit, Preset_Number_IsWrittenInDecimal) {
    row->PresetNumber(-12);
    EXPECT_EQ(Edit().GetWindowText(), L"-12");
}

TEST_F(EditRowEdit, Preset_BoxInEdit_ChangesItsText) {
    Open();
    const HWND box = Edit().m_hWnd;
    row->PresetText(L"preset");
    EXPECT_EQ(Edit().m_hWnd, box);
    EXPECT_EQ(Edit().GetWindowText(), L"preset");
}

TEST_F(EditRowEdit, BeginEdit_WindowWasDestroyedMeanwhile_MakesANewBox) {
    Open();
    ASSERT_EQ(row->Handle_UIDeactivate(), S_OK);
    Edit().DestroyWindow();
    EXPECT_EQ(row->BeginEdit(c_clientRect), S_OK);
    EXPECT_TRUE(Edit().IsWindow());
    EXPECT_TRUE(Edit().HasFocus());
}

TEST_F(EditRowEdit, MouseClick_ReadOnly_Stops) {
    row->m_state = EditState_Shown;
    row->m_readOnly = TRUE;
    EXPECT_EQ(row->MouseClick(1, CPoint(3, 3)), S_OK);
    EXPECT_EQ(row->m_state, EditState_Shown);
    EXPECT_FALSE(row->m_edit);
}

TEST_F(EditRowEdit, MouseClick_NeverShown_Stops) {
    EXPECT_EQ(row->MouseClick(1, CPoint(3, 3)), S_OK);
    EXPECT_EQ(row->m_state, EditState_NeverShown);
    EXPECT_FALSE(row->m_edit);
}

TEST_F(EditRowEdit, MouseClick_Shown_BeginsTheEditOverTheWholeRow) {
    row->m_state = EditState_Shown;
    EXPECT_EQ(row->MouseClick(1, CPoint(3, 3)), S_OK);
    EXPECT_EQ(row->m_state, EditState_InEditAfterClick);
    EXPECT_EQ(Edit().GetClientRect(), CRect(c_clientRect));
}

TEST_F(EditRowEdit, MouseClick_InEdit_IsRemembered) {
    Open();
    EXPECT_EQ(row->MouseClick(1, CPoint(3, 3)), S_OK);
    EXPECT_EQ(row->m_state, EditState_InEditAfterClick);
}

TEST_F(EditRowEdit, MouseClick_BoxCannotBeMade_StaysShown) {
    row->m_state = EditState_Shown;
    shell.window = nullptr;
    EXPECT_EQ(row->MouseClick(1, CPoint(3, 3)), E_FAIL);
    EXPECT_EQ(row->m_state, EditState_Shown);
}

TEST_F(EditRowEdit, DoubleClick_BeginsTheEditAndCountsAsAClick) {
    EXPECT_EQ(row->DoubleClick(c_clientRect), S_OK);
    EXPECT_EQ(row->m_state, EditState_InEditAfterClick);
}

TEST_F(EditRowEdit, DoubleClick_ReadOnly_Stops) {
    row->m_readOnly = TRUE;
    EXPECT_EQ(row->DoubleClick(c_clientRect), S_OK);
    EXPECT_FALSE(row->m_edit);
}

TEST_F(EditRowEdit, SetObjectRects_InEdit_SizesTheBox) {
    Open();
    const RECT bounds = {50, 60, 250, 91};
    EXPECT_EQ(row->Handle_SetObjectRects(&bounds, &bounds), S_OK);
    CRect place = Edit().GetWindowRect();
    window.ScreenToClient(&place);
    EXPECT_EQ(place, CRect(0, 0, 200, 31));
}

TEST_F(EditRowEdit, SetObjectRects_OddHeight_LineStandsInTheMiddle) {
    Open();
    EXPECT_EQ(RectTold({0, 0, 200, 31}), CRect(2, (31 - LineHeight()) / 2, 200, 31));
}

TEST_F(EditRowEdit, SetObjectRects_EvenHeight_LineStandsOneLower) {
    Open();
    EXPECT_EQ(RectTold({0, 0, 200, 30}), CRect(2, (30 - LineHeight()) / 2 + 1, 200, 30));
}

TEST_F(EditRowEdit, SetObjectRects_RowLowerThanALine_LineStartsAtTheTop) {
    Open();
    EXPECT_EQ(RectTold({0, 0, 200, 5}).top, 0);
}

TEST_F(EditRowEdit, SetObjectRects_EmptyText_LineIsWhereATextWouldBe) {
    row->m_text.Empty();
    Open();
    EXPECT_EQ(RectTold({0, 0, 200, 31}), CRect(2, (31 - LineHeight()) / 2, 200, 31));
}

TEST_F(EditRowEdit, SetObjectRects_NotInEdit_LeavesTheBox) {
    Open();
    ASSERT_EQ(row->Handle_UIDeactivate(), S_OK);
    const RECT bounds = {0, 0, 200, 30};
    EXPECT_EQ(row->Handle_SetObjectRects(&bounds, &bounds), S_OK);
    EXPECT_EQ(Edit().GetWindowRect().Size(), CSize(120, 20));
}

TEST_F(EditRowEdit, SetObjectRects_NoBox_IsNoFailure) {
    row->m_state = EditState_InEdit;
    EXPECT_EQ(row->Handle_SetObjectRects(&c_clientRect, &c_clientRect), S_OK);
}

TEST_F(EditRowEdit, Cleanup_InEditWithTypedText_EndsTheBoxWithoutAWrite) {
    Open();
    Type(L"typed");
    const HWND box = Edit().m_hWnd;
    EXPECT_EQ(row->Cleanup(), S_OK);
    EXPECT_FALSE(::IsWindow(box));
    EXPECT_FALSE(row->m_edit);
    EXPECT_EQ(row->m_childWindow, nullptr);
    EXPECT_NO_CALLS(journal);
}

TEST_F(EditRowEdit, Destruction_InEditWithTypedText_EndsTheBoxWithoutAWrite) {
    Open();
    Type(L"typed");
    const HWND box = Edit().m_hWnd;
    EndRow();
    EXPECT_FALSE(::IsWindow(box));
    EXPECT_NO_CALLS(journal);
}

TEST_F(EditRowEdit, PutFont_BoxExists_BoxTakesIt) {
    Open();
    const fw::ComPtr<IFont> font = kvtest::MakeRowFont(140000);
    ASSERT_TRUE(font);
    EXPECT_EQ(row->Handle_put_Font(font.Get()), S_OK);
    EXPECT_EQ(Edit().GetFont(), row->FontHandle());
    EXPECT_EQ(row->Handle_put_Font(nullptr), E_POINTER);
}

TEST_F(EditRowEdit, TextTipWidth_IsThatOfTheText) {
    int width = 0;
    EXPECT_EQ(row->GetTextTipWidth(width), S_OK);
    int expected = 0;
    EXPECT_EQ(row->GetStringWidth(L"alpha", &expected), S_OK);
    EXPECT_GT(width, 10);
    EXPECT_EQ(width, expected);
}

TEST_F(EditRowEdit, KeepFocus_OnlyAfterTheUserHasBegun) {
    short keeps = 5;
    EXPECT_EQ(row->Handle_get_KeepFocus(nullptr), E_POINTER);
    EXPECT_EQ(row->Handle_get_KeepFocus(&keeps), S_OK);
    EXPECT_EQ(keeps, VARIANT_FALSE);
    Open();
    EXPECT_EQ(row->Handle_get_KeepFocus(&keeps), S_OK);
    EXPECT_EQ(keeps, VARIANT_FALSE);
    Key('A');
    EXPECT_EQ(row->Handle_get_KeepFocus(&keeps), S_OK);
    EXPECT_EQ(keeps, VARIANT_TRUE);
    row->m_state = EditState_Shown;
    EXPECT_EQ(row->Handle_get_KeepFocus(&keeps), S_OK);
    EXPECT_EQ(keeps, VARIANT_FALSE);
}

TEST_F(EditRowEdit, BeginEdit_WindowWasDestroyedAmidAnEdit_BoxShowsTheText) {
    Open();
    window.DestroyWindow();
    window.Create(s_windowClass, L"", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, c_rowRect, frame);
    shell.window = window.m_hWnd;
    kvtest::PumpWaiting();
    journal.Clear();
    EXPECT_EQ(row->BeginEdit(c_clientRect), S_OK);
    EXPECT_EQ(Edit().GetWindowText(), L"alpha");
    EXPECT_TRUE(Edit().IsWindowVisible());
    fw::Ignore(row->Handle_UIDeactivate());
    EXPECT_NO_CALLS(journal);
}

}  // namespace
