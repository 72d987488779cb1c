#include "tests/unit/families/ListBench.h"

// A palette may leave a list row at any moment, also in the middle of what the row does or tells.

namespace {

class ListLeaving : public kvtest::ListBench {
protected:
    kvtest::CallLines Writes() const { return kvtest::CallsOnly(journal, {"write"}); }
    void Leave() {
        EXPECT_EQ(shell->UIDeactivate(), S_OK);
        kvtest::PumpWaiting();
    }
    void ChooseInOpenList(int entry) {
        ::SendMessageW(List(), CB_SETCURSEL, static_cast<WPARAM>(entry), 0);
        Notify(CBN_SELENDOK);
        kvtest::PumpWaiting();
    }
};

TEST_F(ListLeaving, EntryUnderTheMouse_IsNoChoice) {
    Edit();
    Drop();
    Mouse(WM_MOUSEMOVE, 2);
    Leave();
    EXPECT_NO_CALLS(Writes());
    Edit();
    EXPECT_EQ(List().GetCurSel(), 0);
    Drop();
    Mouse(WM_MOUSEMOVE, 2);
    EXPECT_EQ(DoVerb(OLEIVERB_HIDE), S_OK);
    kvtest::PumpWaiting();
    EXPECT_NO_CALLS(Writes());
}

TEST_F(ListLeaving, EntryMarkedByKeysInTheOpenList_IsWritten) {
    Edit();
    Drop();
    Key(VK_DOWN);
    Leave();
    EXPECT_CALLS(Writes(), "write 1");
}

TEST_F(ListLeaving, LeftAndOpenedAgain_NextChoiceCounts) {
    Edit();
    Leave();
    Edit();
    Drop();
    Key(VK_DOWN);
    Key(VK_TAB);
    EXPECT_CALLS(Writes(), "write 1");
}

TEST_F(ListLeaving, CancelAfterAnAcceptedChoice_NextChoiceCounts) {
    Edit();
    ChooseInOpenList(1);
    Notify(CBN_SELENDCANCEL);
    kvtest::PumpWaiting();
    journal.Clear();
    ChooseInOpenList(2);
    EXPECT_CALLS(Writes(), "write 2");
}

TEST_F(ListLeaving, ValueWithoutEntryMeanwhile_FormerEntryIsNotWritten) {
    Row().script.current = 1;
    EXPECT_EQ(Row().Handle_Refresh(), S_OK);
    Edit();
    Row().script.current = -1;
    EXPECT_EQ(Row().Handle_Refresh(), E_FAIL);
    EXPECT_EQ(List().GetCurSel(), -1);
    Leave();
    EXPECT_NO_CALLS(Writes());
}

TEST_F(ListLeaving, LeftAmidTheWrite_IsWrittenOnceAndOutOfEdit) {
    Edit();
    Row().script.onWrite = [this](int) { EXPECT_EQ(shell->UIDeactivate(), S_OK); };
    ChooseInOpenList(1);
    EXPECT_CALLS(Writes(), "write 1");
    EXPECT_EQ(Row().m_state, EditState_Shown);
    EXPECT_FALSE(List().IsWindowVisible());
    EXPECT_EQ(Row().m_nCurItem, 1);
}

TEST_F(ListLeaving, WindowEndsAmidTheWrite_IsWrittenOnceAndEditedAgain) {
    Edit();
    Row().script.onWrite = [this](int) { EXPECT_EQ(shell->InPlaceDeactivate(), S_OK); };
    ChooseInOpenList(1);
    EXPECT_CALLS(Writes(), "write 1");
    EXPECT_EQ(Row().m_state, EditState_Shown);
    Row().script.onWrite = nullptr;
    EXPECT_EQ(DoVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
    EXPECT_EQ(Row().Handle_Refresh(), S_OK);
    Edit();
    EXPECT_EQ(List().GetCurSel(), 1);
}

// Lets what it is told to happen when it loses the focus.
class FocusLoser : public CWnd {
public:
    std::function<void()> onLoss;

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_KILLFOCUS && onLoss) {
            std::exchange(onLoss, nullptr)();
        }
        return CWnd::WindowProc(message, wParam, lParam);
    }
};

TEST_F(ListLeaving, WindowEndsAsTheListTakesTheFocus_IsOutOfEdit) {
    static const fw::WindowClass s_loserClass{.name = L"KvTestFocusLoser"};
    FocusLoser loser;
    loser.Create(s_loserClass, L"", WS_CHILD | WS_VISIBLE, {0, 0, 10, 10}, frame);
    loser.SetFocus();
    loser.onLoss = [this] { EXPECT_EQ(shell->InPlaceDeactivate(), S_OK); };
    EXPECT_EQ(Row().BeginEdit(c_clientRect), E_FAIL);
    EXPECT_EQ(Window(), nullptr);
    EXPECT_EQ(Row().m_state, EditState_Shown);
    EXPECT_EQ(DoVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
    Edit();
    EXPECT_EQ(Row().m_state, EditState_InEdit);
    EXPECT_TRUE(List().IsWindowVisible());
    loser.DestroyWindow();
}

}  // namespace
