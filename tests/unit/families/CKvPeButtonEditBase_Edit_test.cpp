#include "core/OleColors.h"
#include "tests/support/PixelCanvas.h"
#include "tests/unit/families/ButtonBench.h"

namespace {

using kvtest::ButtonBench;

class ButtonRowEdit : public ButtonBench {
protected:
    int LineHeight(const wchar_t* text) {
        const fw::WindowDc dc(Edit().m_hWnd);
        const fw::ScopedSelect font(dc, row->FontHandle());
        SIZE extent{};
        ::GetTextExtentPoint32W(dc, text, static_cast<int>(wcslen(text)), &extent);
        return extent.cy;
    }
    // The formatting rectangle that the box is told; what it makes of it is the system's.
    CRect RectTold(const RECT& bounds) {
        CRect told;
        ::SetWindowSubclass(Edit().m_hWnd, &NoteRect, 1, reinterpret_cast<DWORD_PTR>(&told));
        EXPECT_EQ(row->Handle_SetObjectRects(&bounds, &bounds), S_OK);
        ::RemoveWindowSubclass(Edit().m_hWnd, &NoteRect, 1);
        return told;
    }
    static LRESULT CALLBACK NoteRect(HWND box, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                     DWORD_PTR told) {
        if (message == EM_SETRECT) {
            *reinterpret_cast<CRect*>(told) = *reinterpret_cast<const RECT*>(lParam);
        }
        return ::DefSubclassProc(box, message, wParam, lParam);
    }
};

TEST_F(ButtonRowEdit, FieldsAtStart) {
    EXPECT_EQ(row->m_nButtonSide, 2);
    EXPECT_EQ(row->m_buttons.GetSize(), 0);
    EXPECT_EQ(row->m_numericType, PE_TOLM_OTHER);
    EXPECT_TRUE(row->m_bShowButtons);
    EXPECT_FALSE(row->m_editBoxReadOnly);
}

TEST_F(ButtonRowEdit, BeginEdit_MakesTheButtonAsTheRowsLauncher) {
    row->AddButton(0, 0, c_first, false);
    EXPECT_EQ(row->Handle_put_ReadOnlyBackColor(RGB(1, 2, 3)), S_OK);
    Open();
    CPropertyEditorButton& button = *Button(0);
    EXPECT_EQ(button.GetDlgCtrlID(), 1043);
    EXPECT_EQ(button.GetParent(), window.m_hWnd);
    EXPECT_EQ(button.GetStyle() & ~static_cast<DWORD>(WS_VISIBLE | WS_CLIPSIBLINGS),
              CPropertyEditorButton::Style & ~static_cast<DWORD>(WS_CLIPSIBLINGS));
    EXPECT_TRUE(button.IsWindowVisible());
    EXPECT_TRUE(Edit().HasFocus());
    kvtest::PixelCanvas canvas(20, 20);
    DRAWITEMSTRUCT item{};
    item.CtlType = ODT_BUTTON;
    item.hDC = canvas.Dc();
    item.rcItem = {0, 0, 20, 20};
    button.DrawItem(&item);
    EXPECT_EQ(canvas.At(1, 1), RGB(1, 2, 3));
    EXPECT_EQ(canvas.At(0, 0), ::GetSysColor(COLOR_BTNSHADOW));
}

TEST_F(ButtonRowEdit, BeginEdit_NullRecord_Fails) {
    row->m_buttons.Add(nullptr);
    EXPECT_EQ(row->BeginEdit(c_clientRect), E_FAIL);
    EXPECT_FALSE(row->m_edit);
    row->m_buttons.RemoveAll();
}

TEST_F(ButtonRowEdit, BeginEdit_ButtonCannotBeMade_FailsAndLeavesTheRow) {
    row->AddButton(0, 0, c_first, false);
    kvhost::Faults::FailService(L"CLzUiOwnerDrawButton", 1);
    EXPECT_EQ(row->BeginEdit(c_clientRect), E_FAIL);
    EXPECT_EQ(Button(0), nullptr);
    EXPECT_FALSE(row->m_edit);
    EXPECT_EQ(row->m_state, EditState_NeverShown);
    EXPECT_EQ(row->BeginEdit(c_clientRect), S_OK);
    EXPECT_NE(Button(0), nullptr);
}

TEST_F(ButtonRowEdit, BeginEdit_SecondButtonCannotBeMade_KeepsTheFirst) {
    row->AddButton(0, 0, c_first, false);
    row->AddButton(0, 0, c_second, false);
    kvhost::Faults::FailService(L"CLzUiOwnerDrawButton", 2);
    EXPECT_EQ(row->BeginEdit(c_clientRect), E_FAIL);
    EXPECT_NE(Button(0), nullptr);
    EXPECT_EQ(Button(1), nullptr);
}

TEST_F(ButtonRowEdit, ReadOnlyRow_DestroysTheButtonUntilItIsWritableAgain) {
    row->AddButton(0, 0, c_first, false);
    Open();
    const HWND former = Button(0)->m_hWnd;
    row->m_readOnly = TRUE;
    EXPECT_EQ(row->BeginEdit(c_clientRect), S_OK);
    EXPECT_EQ(Button(0), nullptr);
    EXPECT_FALSE(::IsWindow(former));
    EXPECT_TRUE(Edit().IsReadOnly());
    row->m_readOnly = FALSE;
    EXPECT_EQ(row->BeginEdit(c_clientRect), S_OK);
    ASSERT_NE(Button(0), nullptr);
    EXPECT_TRUE(Button(0)->IsWindowVisible());
    EXPECT_FALSE(Edit().IsReadOnly());
}

TEST_F(ButtonRowEdit, ReadOnlyRow_ButtonThatStays_IsShownAndTakesTheFocusOfTheBox) {
    row->AddButton(0, 0, c_first, true);
    Open();
    row->m_readOnly = TRUE;
    EXPECT_EQ(row->BeginEdit(c_clientRect), S_OK);
    ASSERT_NE(Button(0), nullptr);
    EXPECT_TRUE(Button(0)->IsWindowVisible());
    EXPECT_TRUE(Button(0)->HasFocus());
}

TEST_F(ButtonRowEdit, ReadOnlyRowWithoutBox_IsInEditForItsButton) {
    row->AddButton(0, 0, c_first, true);
    row->m_readOnly = TRUE;
    EXPECT_EQ(row->BeginEdit(c_clientRect), S_OK);
    EXPECT_FALSE(row->m_edit);
    EXPECT_EQ(row->m_state, EditState_InEdit);
    EXPECT_EQ(PlaceOf(*Button(0)), CRect(100, 0, 120, 20));
}

TEST_F(ButtonRowEdit, BoxReadOnlyByItself_GivesTheFocusToTheFirstButton) {
    row->m_editBoxReadOnly = true;
    row->AddButton(0, 0, c_first, false);
    Open();
    EXPECT_TRUE(Button(0)->HasFocus());
    EXPECT_TRUE(Edit().IsReadOnly());
}

TEST_F(ButtonRowEdit, ButtonsNotShown_StayHiddenAndOutOfTheTabOrder) {
    row->m_bShowButtons = false;
    row->AddButton(0, 0, c_first, false);
    Open();
    EXPECT_FALSE(Button(0)->IsWindowVisible());
    Key(VK_TAB);
    EXPECT_CALLS(journal, "KeyDown 9 1");
}

TEST_F(ButtonRowEdit, TabInTheBox_GoesToTheFirstButton) {
    row->AddButton(0, 0, c_first, false);
    Open();
    Key(VK_TAB);
    EXPECT_TRUE(Button(0)->HasFocus());
    EXPECT_NO_CALLS(journal);
    ::PostMessageW(Button(0)->m_hWnd, WM_KEYDOWN, VK_TAB, 1);
    kvtest::PumpWaiting();
    EXPECT_CALLS(journal, "KeyDown 9 1");
}

TEST_F(ButtonRowEdit, TabAfterTheButtonHasGone_GoesToThePalette) {
    row->AddButton(0, 0, c_first, false);
    Open();
    row->m_readOnly = TRUE;
    EXPECT_EQ(row->BeginEdit(c_clientRect), S_OK);
    Edit().SetFocus();
    Key(VK_TAB);
    EXPECT_CALLS(journal, "KeyDown 9 1");
}

TEST_F(ButtonRowEdit, TwoButtonsAtTheRight_FirstStandsAtTheEndWithAPixelBetween) {
    row->AddButton(0, 0, c_first, false);
    row->AddButton(0, 0, c_second, false);
    Open();
    EXPECT_EQ(PlaceOf(*Button(0)), CRect(100, 0, 120, 20));
    EXPECT_EQ(PlaceOf(*Button(1)), CRect(79, 0, 99, 20));
    EXPECT_EQ(PlaceOf(Edit()), CRect(0, 0, 78, 20));
}

TEST_F(ButtonRowEdit, TwoButtonsAtTheLeft_FirstStandsAtTheEndWithAPixelBetween) {
    row->m_nButtonSide = 1;
    row->AddButton(0, 0, c_first, false);
    row->AddButton(0, 0, c_second, false);
    Open();
    EXPECT_EQ(PlaceOf(*Button(0)), CRect(0, 0, 20, 20));
    EXPECT_EQ(PlaceOf(*Button(1)), CRect(21, 0, 41, 20));
    EXPECT_EQ(PlaceOf(Edit()), CRect(42, 0, 120, 20));
}

TEST_F(ButtonRowEdit, NoButton_BoxTakesTheWholeRow) {
    Open();
    EXPECT_EQ(PlaceOf(Edit()), CRect(0, 0, 120, 20));
}

TEST_F(ButtonRowEdit, SetObjectRects_InThePlaceOfTheContainer_LaysOutFromTheRowsCorner) {
    row->AddButton(0, 0, c_first, false);
    Open();
    const RECT bounds = {50, 60, 250, 91};
    EXPECT_EQ(row->Handle_SetObjectRects(&bounds, &bounds), S_OK);
    EXPECT_EQ(PlaceOf(*Button(0)), CRect(169, 0, 200, 31));
    EXPECT_EQ(PlaceOf(Edit()), CRect(0, 0, 168, 31));
}

TEST_F(ButtonRowEdit, SetObjectRects_RowNarrowerThanItsButtons_BoxHasNoWidth) {
    row->AddButton(0, 0, c_first, false);
    Open();
    const RECT bounds = {0, 0, 10, 20};
    EXPECT_EQ(row->Handle_SetObjectRects(&bounds, &bounds), S_OK);
    EXPECT_EQ(PlaceOf(Edit()).Width(), 0);
}

TEST_F(ButtonRowEdit, SetObjectRects_NotInEdit_MovesNothing) {
    row->AddButton(0, 0, c_first, false);
    Open();
    ASSERT_EQ(row->Handle_UIDeactivate(), S_OK);
    const RECT bounds = {0, 0, 200, 30};
    EXPECT_EQ(row->Handle_SetObjectRects(&bounds, &bounds), S_OK);
    EXPECT_EQ(PlaceOf(*Button(0)), CRect(100, 0, 120, 20));
    EXPECT_EQ(row->Handle_SetObjectRects(nullptr, nullptr), E_POINTER);
}

TEST_F(ButtonRowEdit, Formatting_OddHeight_LineStandsInTheMiddle) {
    row->AddButton(0, 0, c_first, false);
    Open();
    const CRect told = RectTold({0, 0, 200, 31});
    EXPECT_EQ(told.TopLeft(), CPoint(2, (31 - LineHeight(L"alpha")) / 2));
    EXPECT_EQ(told.right, 200 - 31 - 1);
}

TEST_F(ButtonRowEdit, Formatting_EvenHeight_LineStandsOneLower) {
    Open();
    EXPECT_EQ(RectTold({0, 0, 200, 30}).TopLeft(), CPoint(2, (30 - LineHeight(L"alpha")) / 2 + 1));
}

TEST_F(ButtonRowEdit, Formatting_RowLowerThanALine_StartsAtTheTop) {
    Open();
    EXPECT_EQ(RectTold({0, 0, 200, 5}).top, 0);
}

TEST_F(ButtonRowEdit, Formatting_EmptyText_LineIsWhereATextWouldBe) {
    row->m_text.Empty();
    Open();
    const CRect empty = RectTold({0, 0, 200, 31});
    EXPECT_EQ(empty.top, (31 - LineHeight(L"WOyg")) / 2);
    row->m_text = L"a";
    EXPECT_EQ(RectTold({0, 0, 200, 31}), empty);
}

TEST_F(ButtonRowEdit, Formatting_LaidOutAgain_KeepsTheBottomAndTheRightOfTheBox) {
    row->AddButton(0, 0, c_first, false);
    Open();
    for (int time = 0; time < 3; ++time) {
        const CRect told = RectTold(c_clientRect);
        EXPECT_EQ(told.right, 99);
        EXPECT_EQ(told.bottom, 20);
    }
}

TEST_F(ButtonRowEdit, UIDeactivate_HidesTheButtonsAndTheBox) {
    row->AddButton(0, 0, c_first, false);
    Open();
    EXPECT_EQ(row->Handle_UIDeactivate(), S_OK);
    EXPECT_FALSE(Button(0)->IsWindowVisible());
    EXPECT_FALSE(Edit().IsWindowVisible());
    EXPECT_EQ(row->m_state, EditState_Shown);
}

TEST_F(ButtonRowEdit, DoVerbShow_InEdit_ShowsBoxAndButtons) {
    row->AddButton(0, 0, c_first, false);
    Open();
    Edit().ShowWindow(SW_HIDE);
    Button(0)->ShowWindow(SW_HIDE);
    EXPECT_EQ(row->Handle_DoVerbShow(), S_OK);
    EXPECT_TRUE(Edit().IsWindowVisible());
    EXPECT_TRUE(Button(0)->IsWindowVisible());
}

TEST_F(ButtonRowEdit, DoVerbShow_ButtonsNotShownOrNoEdit_LeavesThem) {
    row->AddButton(0, 0, c_first, false);
    Open();
    Button(0)->ShowWindow(SW_HIDE);
    row->m_bShowButtons = false;
    EXPECT_EQ(row->Handle_DoVerbShow(), S_OK);
    EXPECT_FALSE(Button(0)->IsWindowVisible());
    row->m_bShowButtons = true;
    row->m_state = EditState_Shown;
    EXPECT_EQ(row->Handle_DoVerbShow(), S_OK);
    EXPECT_FALSE(Button(0)->IsWindowVisible());
}

TEST_F(ButtonRowEdit, BeginEdit_ButtonsWindowWentMeanwhile_MakesItAnew) {
    row->AddButton(0, 0, c_first, false);
    Open();
    Button(0)->DestroyWindow();
    EXPECT_EQ(row->BeginEdit(c_clientRect), S_OK);
    EXPECT_TRUE(Button(0)->IsWindow());
}

TEST_F(ButtonRowEdit, Cleanup_EndsBoxAndButtons) {
    row->AddButton(173, 174, c_first, false);
    Open();
    Type(L"typed");
    const HWND box = Edit().m_hWnd;
    const HWND button = Button(0)->m_hWnd;
    Focus(button);
    journal.Clear();
    EXPECT_EQ(row->Cleanup(), S_OK);
    EXPECT_FALSE(::IsWindow(box));
    EXPECT_FALSE(::IsWindow(button));
    EXPECT_EQ(row->m_buttons.GetSize(), 0);
}

TEST_F(ButtonRowEdit, ExpressionTip_TellsTheStateOnThePickButton) {
    row->SetPickMode(1);
    row->m_expressionState = ExpressionState_NoExpression;
    Open();
    EXPECT_EQ(Button(0)->GetTipText(), L"Expression: none");
    row->m_expressionState = ExpressionState_Mixed;
    EXPECT_EQ(row->BeginEdit(c_clientRect), S_OK);
    EXPECT_EQ(Button(0)->GetTipText(), L"Expression: *VARIES*");
    row->m_expressionState = ExpressionState_Shared;
    row->m_expression = L"2*width";
    EXPECT_EQ(row->BeginEdit(c_clientRect), S_OK);
    EXPECT_EQ(Button(0)->GetTipText(), L"Expression: 2*width");
    row->m_expressionState = 7;
    EXPECT_EQ(row->BeginEdit(c_clientRect), S_OK);
    EXPECT_EQ(Button(0)->GetTipText(), L"Expression: none");
}

TEST_F(ButtonRowEdit, ExpressionTip_PropertyWithoutExpressions_HasNone) {
    row->SetPickMode(1);
    Open();
    EXPECT_TRUE(Button(0)->GetTipText().IsEmpty());
}

}  // namespace
