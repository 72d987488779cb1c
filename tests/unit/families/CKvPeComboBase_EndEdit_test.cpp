#include "tests/unit/families/ListBench.h"

// Where a choice becomes a write, and what becomes of a cancelled or a failed one.

namespace {

class ListEndEdit : public kvtest::ListBench {
protected:
    ListEndEdit() { Edit(); }

    // What the user's pointing leaves behind: a choice that nobody has said anything about.
    void Choose(int entry) { List().SetCurSel(entry); }
};

TEST_F(ListEndEdit, NotInEdit_Fails) {
    Row().m_state = EditState_Shown;
    Choose(1);
    EXPECT_EQ(Row().EndEdit(), E_FAIL);
    EXPECT_NO_CALLS(Calls());
}

TEST_F(ListEndEdit, NewChoice_IsWritten) {
    Choose(2);
    EXPECT_EQ(Row().EndEdit(), S_OK);
    EXPECT_CALLS(Calls(), "write 2");
    EXPECT_EQ(Row().m_nCurItem, 2);
    EXPECT_EQ(Row().m_strText, L"gamma");
    EXPECT_EQ(List().GetCurSel(), 2);
    EXPECT_EQ(Row().m_state, EditState_Committing);
}

TEST_F(ListEndEdit, NewChoice_RowIsPaintedAnewAndListHasTheFocus) {
    Choose(2);
    elsewhere.SetFocus();
    ::ValidateRect(Window(), nullptr);
    EXPECT_EQ(Row().EndEdit(), S_OK);
    EXPECT_EQ(::GetFocus(), List().m_hWnd);
    EXPECT_TRUE(::GetUpdateRect(Window(), nullptr, FALSE));
}

TEST_F(ListEndEdit, SameChoice_WritesNothing) {
    EXPECT_EQ(Row().EndEdit(), S_OK);
    EXPECT_NO_CALLS(Calls());
    EXPECT_EQ(Row().m_state, EditState_InEdit);
}

TEST_F(ListEndEdit, NoChoice_FailsAndForgetsTheFormerOne) {
    Choose(-1);
    EXPECT_EQ(Row().EndEdit(), E_FAIL);
    EXPECT_EQ(Row().m_nCurItem, -1);
    EXPECT_EQ(Row().m_strText, L"alpha");
    EXPECT_NO_CALLS(Calls());
}

TEST_F(ListEndEdit, Cancelled_FormerChoiceIsBack) {
    Choose(2);
    Row().m_bCancelled = TRUE;
    EXPECT_EQ(Row().EndEdit(), S_OK);
    EXPECT_FALSE(Row().m_bCancelled);
    EXPECT_EQ(List().GetCurSel(), 0);
    EXPECT_EQ(Row().m_state, EditState_InEdit);
    EXPECT_NO_CALLS(Calls());
}

TEST_F(ListEndEdit, ChoiceAccepted_SameChoice_ReturnsAtOnce) {
    Row().m_state = EditState_ChoiceAccepted;
    Row().m_bCancelled = TRUE;
    EXPECT_EQ(Row().EndEdit(), S_OK);
    EXPECT_TRUE(Row().m_bCancelled) << "nothing was looked at";
    EXPECT_EQ(Row().m_state, EditState_ChoiceAccepted);
}

TEST_F(ListEndEdit, ChoiceAccepted_NewChoice_IsWritten) {
    Row().m_state = EditState_ChoiceAccepted;
    Choose(1);
    EXPECT_EQ(Row().EndEdit(), S_OK);
    EXPECT_CALLS(Calls(), "write 1");
}

TEST_F(ListEndEdit, HighlightedText_IsNoLongerSo) {
    Row().m_bDrawHighlighted = TRUE;
    EXPECT_EQ(Row().EndEdit(), S_OK);
    EXPECT_FALSE(Row().m_bDrawHighlighted);
}

TEST_F(ListEndEdit, WriteFails_ObjectsKeepTheirValue_FormerChoiceIsBack) {
    Row().script.writeResult = E_FAIL;
    Choose(2);
    EXPECT_EQ(Row().EndEdit(), S_OK) << "the failure was told";
    EXPECT_CALLS(Calls(), "write 2", "read");
    EXPECT_EQ(List().GetCurSel(), 0);
    EXPECT_EQ(Row().m_nCurItem, 0);
    EXPECT_EQ(Row().m_strText, L"alpha");
}

TEST_F(ListEndEdit, WriteThrows_FormerChoiceIsBackAndTheNextIsWritten) {
    Row().script.onWrite = [](int) { throw 1; };
    Choose(2);
    EXPECT_EQ(Row().EndEdit(), S_OK);
    EXPECT_EQ(List().GetCurSel(), 0);
    Row().script.onWrite = nullptr;
    Choose(1);
    EXPECT_EQ(Row().EndEdit(), S_OK);
    EXPECT_EQ(Row().script.current, 1);
    EXPECT_EQ(Row().m_strText, L"beta");
}

TEST_F(ListEndEdit, WriteFails_ObjectsHaveAnotherValue_ListIsFilledAnewAndShowsIt) {
    Row().script.writeResult = E_FAIL;
    Row().script.onWrite = [this](int) { Row().script.current = 1; };
    Choose(2);
    EXPECT_EQ(Row().EndEdit(), S_OK);
    EXPECT_CALLS(Calls(), "write 2", "read", "fill", "read");
    EXPECT_EQ(List().GetCurSel(), 1);
    EXPECT_EQ(Row().m_strText, L"beta");
}

TEST_F(ListEndEdit, WriteFails_NoEntryStandsForTheValue_Fails) {
    Row().script.writeResult = E_FAIL;
    Row().script.onWrite = [this](int) { Row().script.current = -1; };
    Choose(2);
    EXPECT_EQ(Row().EndEdit(), E_FAIL);
    EXPECT_CALLS(Calls(), "write 2", "read", "fill", "read");
    EXPECT_EQ(List().GetCurSel(), -1);
    EXPECT_EQ(Row().m_strText, L"alpha");
}

TEST_F(ListEndEdit, SomeObjectsRefused_ValueIsReadAgain) {
    Row().script.onWrite = [this](int) { Row().m_failedObjectCount = 1; };
    Choose(2);
    EXPECT_EQ(Row().EndEdit(), S_OK);
    EXPECT_CALLS(Calls(), "write 2", "read", "fill", "read");
    EXPECT_EQ(Row().m_nCurItem, 2);
}

TEST_F(ListEndEdit, WriteRuns_StateSaysSo) {
    int state = 0;
    Row().script.onWrite = [&](int) { state = Row().m_state; };
    Choose(1);
    EXPECT_EQ(Row().EndEdit(), S_OK);
    EXPECT_EQ(state, EditState_Committing);
}

TEST_F(ListEndEdit, WriteLeadsThePaletteToClearTheRow_Fails) {
    Row().script.onWrite = [this](int) { EXPECT_EQ(Row().Cleanup(), S_OK); };
    Choose(1);
    EXPECT_EQ(Row().EndEdit(), E_FAIL);
    EXPECT_CALLS(Calls(), "write 1");
    EXPECT_FALSE(Row().m_pList);
}

// The end of a drop-down, as the list reports it

TEST_F(ListEndEdit, AcceptedChoice_IsWrittenAtOnce) {
    Choose(1);
    Notify(CBN_SELENDOK);
    EXPECT_CALLS(Calls(), "write 1");
    EXPECT_EQ(Row().m_state, EditState_ChoiceAccepted);
    EXPECT_EQ(::GetFocus(), List().m_hWnd);
}

TEST_F(ListEndEdit, AcceptedSameChoice_WritesNothing) {
    Notify(CBN_SELENDOK);
    EXPECT_NO_CALLS(Calls());
    EXPECT_EQ(Row().m_state, EditState_ChoiceAccepted);
}

TEST_F(ListEndEdit, CancelledDropDown_WaitsForItsMessage) {
    Choose(1);
    Notify(CBN_SELENDCANCEL);
    EXPECT_EQ(List().GetCurSel(), 1);
    kvtest::PumpWaiting();
    EXPECT_EQ(List().GetCurSel(), 0);
    EXPECT_NO_CALLS(Calls());
    EXPECT_EQ(Row().m_state, EditState_InEdit);
}

TEST_F(ListEndEdit, CancelledThenAccepted_CountsAsAccepted) {
    Choose(1);
    Notify(CBN_SELENDCANCEL);
    Notify(CBN_SELENDOK);
    kvtest::PumpWaiting();
    EXPECT_CALLS(Calls(), "write 1");
    EXPECT_FALSE(Row().m_bCancelled);
    EXPECT_EQ(List().GetCurSel(), 1);
    EXPECT_EQ(Row().m_state, EditState_ChoiceAccepted);
}

TEST_F(ListEndEdit, AcceptedThenCancelled_CancelIsRun) {
    Choose(1);
    Notify(CBN_SELENDOK);
    Choose(2);
    Notify(CBN_SELENDCANCEL);
    kvtest::PumpWaiting();
    EXPECT_CALLS(Calls(), "write 1");
    EXPECT_EQ(List().GetCurSel(), 1);
}

TEST_F(ListEndEdit, CancelMessageWithoutACancel_DoesNothing) {
    Choose(1);
    ::SendMessageW(Window(), WM_KVPE_CANCEL_DROPDOWN, 0, 0);
    EXPECT_EQ(List().GetCurSel(), 1);
    EXPECT_NO_CALLS(Calls());
}

TEST_F(ListEndEdit, LeftBeforeTheCancelComes_NothingIsWritten) {
    Choose(1);
    Notify(CBN_SELENDCANCEL);
    EXPECT_EQ(shell->UIDeactivate(), S_OK);
    kvtest::PumpWaiting();
    EXPECT_CALLS(Calls());
    EXPECT_EQ(List().GetCurSel(), 0);
    EXPECT_EQ(Row().m_state, EditState_Shown);
}

TEST_F(ListEndEdit, HiddenBeforeTheCancelComes_NothingIsWritten) {
    Choose(1);
    Notify(CBN_SELENDCANCEL);
    EXPECT_EQ(DoVerb(OLEIVERB_HIDE), S_OK);
    kvtest::PumpWaiting();
    EXPECT_CALLS(Calls());
    EXPECT_EQ(List().GetCurSel(), 0);
}

// Real drop-downs

TEST_F(ListEndEdit, ArrowInTheClosedList_IsWritten) {
    Key(VK_DOWN);
    EXPECT_CALLS(Calls(), "write 1");
    EXPECT_EQ(Row().m_state, EditState_ChoiceAccepted);
}

TEST_F(ListEndEdit, ClickOnAnEntry_IsWrittenAndTheListCloses) {
    Drop();
    Mouse(WM_MOUSEMOVE, 2);
    Mouse(WM_LBUTTONDOWN, 2, MK_LBUTTON);
    Mouse(WM_LBUTTONUP, 2);
    EXPECT_CALLS(Calls(), "write 2");
    EXPECT_FALSE(List().GetDroppedState());
    EXPECT_EQ(Row().m_strText, L"gamma");
}

TEST_F(ListEndEdit, EnterInTheOpenList_IsWritten) {
    Drop();
    Key(VK_DOWN);
    EXPECT_NO_CALLS(Calls());
    Key(VK_RETURN);
    EXPECT_CALLS(Calls(), "write 1");
}

TEST_F(ListEndEdit, EscapeInTheOpenList_FormerChoiceIsBack) {
    Drop();
    Mouse(WM_MOUSEMOVE, 2);
    Key(VK_ESCAPE);
    EXPECT_NO_CALLS(Calls());
    EXPECT_EQ(List().GetCurSel(), 0);
    EXPECT_FALSE(List().GetDroppedState());
}

TEST_F(ListEndEdit, FocusLostWithTheListOpen_FormerChoiceIsBack) {
    Drop();
    Mouse(WM_MOUSEMOVE, 2);
    elsewhere.SetFocus();
    kvtest::PumpWaiting();
    EXPECT_NO_CALLS(Calls());
    EXPECT_EQ(List().GetCurSel(), 0);
    EXPECT_FALSE(List().GetDroppedState());
}

}  // namespace
