// What the base class answers by itself, and its states.

#include "core/EditState.h"
#include "tests/unit/core/ControlBench.h"

namespace {

using CKvPeCtrlBaseTest = kvtest::ControlTest;

// Notes the ends of edits.
class EndingControl final : public kvtest::OpenControl {
public:
    using kvtest::OpenControl::OpenControl;
    HRESULT BeginEdit(const RECT& bounds) override {
        kvtest::Note(L"BeginEdit", bounds.left, bounds.bottom);
        return kvtest::OpenControl::BeginEdit(bounds);
    }
    HRESULT EndEdit() override {
        kvtest::Note(L"EndEdit", m_state);
        return endResult;
    }
    HRESULT endResult = S_OK;
};

TEST_F(CKvPeCtrlBaseTest, Construction_StartsUnshownAndEmpty) {
    EXPECT_EQ(control.m_state, EditState_NeverShown);
    EXPECT_EQ(control.m_objectCount, 0);
    EXPECT_EQ(control.m_expressionState, 0);
    EXPECT_FALSE(control.m_readOnly);
    EXPECT_FALSE(control.m_allowUnspecified);
    EXPECT_FALSE(control.m_keepEditOnHide);
    EXPECT_EQ(control.Events(), &shell);
    EXPECT_EQ(control.m_highlightedPaths.growLength(), 8);
    EXPECT_EQ(control.GetUnspecifiedString(), L"");
}

TEST_F(CKvPeCtrlBaseTest, OperationsOfFamilies_SucceedWithoutEffect) {
    const RECT bounds{0, 0, 10, 10};
    ATL_DRAWINFO info;
    BOOL handled = TRUE;
    EXPECT_EQ(control.CKvPeCtrlBase::BeginEdit(bounds), S_OK);
    EXPECT_EQ(control.CKvPeCtrlBase::PreSetPropertyValue(nullptr, 5), S_OK);
    EXPECT_EQ(control.MouseClick(1, CPoint(1, 1)), S_OK);
    EXPECT_EQ(control.DoubleClick(bounds), S_OK);
    EXPECT_EQ(control.Handle_Refresh(), S_OK);
    EXPECT_EQ(control.Handle_OnDraw(info), S_OK);
    EXPECT_EQ(control.Handle_SetObjectRects(&bounds, &bounds), S_OK);
    EXPECT_EQ(control.Handle_DoVerbShow(), S_OK);
    EXPECT_EQ(control.Handle_OnCreate(WM_CREATE, 0, 0, handled), 0);
    EXPECT_EQ(control.m_state, EditState_NeverShown);
    EXPECT_NO_CALLS(journal);
}

TEST_F(CKvPeCtrlBaseTest, FixedAnswers) {
    int width = -1;
    EXPECT_EQ(control.GetTextTipWidth(width), S_OK);
    EXPECT_EQ(width, 100);
    EXPECT_EQ(control.GetComboTextTipWidth(3, width), S_OK);
    EXPECT_EQ(width, 0);
    bool handled = true;
    EXPECT_EQ(control.PropertySysKeyDown(VK_F4, 1, 0, handled), S_OK);
    EXPECT_FALSE(handled);
    short keepFocus = VARIANT_TRUE;
    EXPECT_EQ(control.Handle_get_KeepFocus(&keepFocus), S_OK);
    EXPECT_EQ(keepFocus, VARIANT_FALSE);
    EXPECT_EQ(control.Handle_get_KeepFocus(nullptr), E_POINTER);
}

TEST_F(CKvPeCtrlBaseTest, Values_AreKeptAndGivenBack) {
    int number = 3;
    EXPECT_EQ(control.SetState(number), S_OK);
    EXPECT_EQ(control.GetState(number = 0), S_OK);
    EXPECT_EQ(number, 3);
    EXPECT_EQ(control.SetReadOnlyFlag(1), S_OK);
    EXPECT_EQ(control.PropReadOnly(number = 0), S_OK);
    EXPECT_EQ(number, 1);
    EXPECT_EQ(control.SetDoNextVariantItem(1), S_OK);
    EXPECT_EQ(control.GetDoNextVariantItem(number = 0), S_OK);
    EXPECT_EQ(number, 1);
    EXPECT_EQ(control.SetChangeNotified(1), S_OK);
    EXPECT_EQ(control.GetChangeNotified(number = 0), S_OK);
    EXPECT_EQ(number, 1);
    bool boxReadOnly = true;
    EXPECT_EQ(control.EditBoxReadOnly(boxReadOnly), S_OK);
    EXPECT_FALSE(boxReadOnly);
    control.m_editBoxReadOnly = true;
    EXPECT_EQ(control.EditBoxReadOnly(boxReadOnly), S_OK);
    EXPECT_TRUE(boxReadOnly);
}

// Messages

TEST_F(CKvPeCtrlBaseTest, KeyDown_IsHandledAndFired) {
    BOOL handled = FALSE;
    EXPECT_EQ(control.Handle_OnKeyDown(WM_KEYDOWN, VK_TAB, 0x10001, handled), S_OK);
    EXPECT_TRUE(handled);
    EXPECT_CALLS(journal, "OnKeyDown 9 65537");
}

TEST_F(CKvPeCtrlBaseTest, MouseMessages_AreLeftUnhandled) {
    using Handler = LRESULT (CKvPeCtrlBase::*)(UINT, WPARAM, LPARAM, BOOL&);
    for (const Handler handler :
         {&CKvPeCtrlBase::Handle_OnLButtonDown, &CKvPeCtrlBase::Handle_OnRButtonDown,
          &CKvPeCtrlBase::Handle_OnMButtonDown, &CKvPeCtrlBase::Handle_OnLButtonDblClk,
          &CKvPeCtrlBase::Handle_OnMouseLeave}) {
        BOOL handled = TRUE;
        EXPECT_EQ((control.*handler)(WM_LBUTTONDOWN, 0, 0, handled), 0);
        EXPECT_FALSE(handled);
    }
    EXPECT_NO_CALLS(journal);
}

TEST_F(CKvPeCtrlBaseTest, EraseBackground_IsHandledWithoutErasing) {
    BOOL handled = FALSE;
    EXPECT_EQ(control.Handle_OnEraseBackground(WM_ERASEBKGND, 0, 0, handled), 1);
    EXPECT_TRUE(handled);
}

TEST_F(CKvPeCtrlBaseTest, Fires_ReachTheShellWithTheirArguments) {
    shell.sinkResult = S_FALSE;
    EXPECT_EQ(control.Fire_OnKeyDown(13, 1), S_FALSE);
    EXPECT_EQ(control.Fire_OnKeyUp(13, 2), S_FALSE);
    EXPECT_EQ(control.Fire_OnRButtonDown(2, 3), S_FALSE);
    EXPECT_EQ(control.Fire_OnMButtonDown(16, 4), S_FALSE);
    EXPECT_CALLS(journal, "OnKeyDown 13 1", "OnKeyUp 13 2", "OnRButtonDown 2 3", "OnMButtonDown 16 4");
}

// States

TEST_F(CKvPeCtrlBaseTest, Hide_EndsARunningEdit) {
    EndingControl row(&shell, &shell);
    for (const int state : {0, 1, 2, 3, 4, 5}) {
        journal.Clear();
        row.m_state = state;
        EXPECT_EQ(row.Handle_DoVerbHide(), S_OK);
        EXPECT_EQ(row.m_state, state >= 2 ? 1 : state);
        EXPECT_EQ(kvtest::CallsOf(journal).size(), state >= 2 ? 1U : 0U);
    }
}

TEST_F(CKvPeCtrlBaseTest, Hide_KeepsTheEditWhenTold) {
    EndingControl row(&shell, &shell);
    row.m_keepEditOnHide = TRUE;
    row.m_state = EditState_InEdit;
    EXPECT_EQ(row.Handle_DoVerbHide(), S_OK);
    EXPECT_EQ(row.m_state, EditState_InEdit);
    EXPECT_NO_CALLS(journal);
}

TEST_F(CKvPeCtrlBaseTest, Hide_EditThatCannotEnd_IsHiddenAllTheSame) {
    EndingControl row(&shell, &shell);
    row.endResult = E_FAIL;
    row.m_state = EditState_InEdit;
    EXPECT_EQ(row.Handle_DoVerbHide(), S_OK);
    EXPECT_EQ(row.m_state, EditState_Shown);
}

TEST_F(CKvPeCtrlBaseTest, Deactivate_EndsARunningEditAndIsShownInAnyCase) {
    EndingControl row(&shell, &shell);
    for (const int state : {0, 1, 2, 3, 4, 5}) {
        journal.Clear();
        row.m_state = state;
        row.m_keepEditOnHide = TRUE;
        EXPECT_EQ(row.Handle_UIDeactivate(), S_OK);
        EXPECT_EQ(row.m_state, EditState_Shown);
        EXPECT_EQ(kvtest::CallsOf(journal).size(), state >= 2 ? 1U : 0U);
    }
}

TEST_F(CKvPeCtrlBaseTest, Activate_BeginsTheEditInACopyOfTheRectangle) {
    EndingControl row(&shell, &shell);
    const RECT bounds{1, 2, 3, 4};
    EXPECT_EQ(row.Handle_DoVerbUIActivate(&bounds), S_OK);
    EXPECT_CALLS(journal, "BeginEdit 1 4");
    EXPECT_EQ(row.Handle_DoVerbUIActivate(nullptr), E_POINTER);
}

}  // namespace
