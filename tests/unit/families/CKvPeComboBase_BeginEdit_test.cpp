#include "refhost/testing/Faults.h"
#include "tests/unit/families/ListBench.h"

// From the idle row to the list over it, and what a refresh does to it.

namespace {

constexpr DWORD c_listStyle = 0x4020004B;

class ListBeginEdit : public kvtest::ListBench {
protected:
    ~ListBeginEdit() override { kvhost::Faults::Reset(); }

    HRESULT Begin() { return Row().BeginEdit(c_clientRect); }

    static CRect PlaceIn(HWND parent, HWND child) {
        CRect bounds;
        ::GetWindowRect(child, &bounds);
        ::MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&bounds), 2);
        return bounds;
    }
};

TEST_F(ListBeginEdit, FirstTime_ListIsMadeFilledShownAndHasTheFocus) {
    EXPECT_EQ(Begin(), S_OK);
    EXPECT_CALLS(Calls(), "CLzUiComboBox 1002", "fill");
    EXPECT_TRUE(List().IsWindowVisible());
    EXPECT_EQ(::GetFocus(), List().m_hWnd);
    EXPECT_EQ(Row().m_state, EditState_InEdit);
    EXPECT_EQ(List().GetDlgCtrlID(), 1002);
    EXPECT_EQ(List().GetFont(), Row().FontHandle());
    EXPECT_EQ(Row().m_childWindow, &List());
    EXPECT_EQ(Row().m_textTip.GetOwner(), List().m_hWnd);
    EXPECT_EQ(List().GetCount(), 3);
}

TEST_F(ListBeginEdit, FirstTime_WindowHasTheFamilysStyle) {
    EXPECT_EQ(Begin(), S_OK);
    // The system hands the scroll bar on to the list part.
    constexpr DWORD ownStyle = c_listStyle & ~static_cast<DWORD>(WS_VSCROLL);
    EXPECT_EQ(List().GetStyle() & (c_listStyle | WS_BORDER), ownStyle);
    EXPECT_EQ(List().GetParent(), Window());
    EXPECT_TRUE(dynamic_cast<CPropComboBox*>(&List()));
    EXPECT_EQ(dynamic_cast<CPropComboBox&>(List()).GetOwner(), &Row());
}

TEST_F(ListBeginEdit, FirstTime_ListCoversTheRowAndItsFrameLiesOutside) {
    EXPECT_EQ(Begin(), S_OK);
    const CRect place = PlaceIn(Window(), List().m_hWnd);
    EXPECT_EQ(place.TopLeft(), CPoint(-2, -2));
    EXPECT_EQ(place.Width(), 124);
    CRect dropped = List().GetDroppedControlRect();
    EXPECT_EQ(dropped.Width(), 124);
}

TEST_F(ListBeginEdit, FirstTime_ClosedPartIsAsTallAsTheRowWithoutItsFrame) {
    EXPECT_EQ(Begin(), S_OK);
    // Wine takes the height of entries for owner-drawn lists only.
    EXPECT_NE(List().GetItemHeight(0), 18);
    const int closed = List().GetItemHeight(-1);
    List().SetItemHeight(-1, 18);
    EXPECT_EQ(List().GetItemHeight(-1), closed);
}

TEST_F(ListBeginEdit, CreatedWindow_IsGivenTheRowsRectangleAndNineRowsHeight) {
    CRect given;
    Row().script.createWindow = [&](CKvPeComboBase& row, const RECT& bounds) {
        given = bounds;
        return row.CKvPeComboBase::CreateComboWindow(bounds);
    };
    EXPECT_EQ(Begin(), S_OK);
    EXPECT_EQ(given, CRect(-2, -2, 122, 180));
}

TEST_F(ListBeginEdit, InEdit_OnlyTheFocusComesBack) {
    Edit();
    elsewhere.SetFocus();
    Row().script.entries.emplace_back(L"delta");
    EXPECT_EQ(Begin(), S_OK);
    EXPECT_CALLS(Calls());
    EXPECT_EQ(::GetFocus(), List().m_hWnd);
    EXPECT_EQ(List().GetCount(), 3);
}

TEST_F(ListBeginEdit, AfterAnAcceptedChoice_ListStaysFilled) {
    Edit();
    Row().m_state = EditState_ChoiceAccepted;
    EXPECT_EQ(Begin(), S_OK);
    EXPECT_CALLS(Calls());
    EXPECT_EQ(Row().m_state, EditState_InEdit);
}

TEST_F(ListBeginEdit, ShownAgain_ListIsTheSameAndFilledAnew) {
    Edit();
    const HWND first = List().m_hWnd;
    EXPECT_EQ(Row().Handle_UIDeactivate(), S_OK);
    Clear();
    EXPECT_EQ(Begin(), S_OK);
    EXPECT_CALLS(Calls(), "fill");
    EXPECT_EQ(List().m_hWnd, first);
    EXPECT_TRUE(List().IsWindowVisible());
}

TEST_F(ListBeginEdit, ReadOnly_NoListIsMade) {
    Row().m_readOnly = TRUE;
    EXPECT_EQ(Begin(), S_OK);
    EXPECT_FALSE(Row().m_pList);
    EXPECT_EQ(Row().m_state, EditState_NeverShown);
    EXPECT_CALLS(Calls());
}

TEST_F(ListBeginEdit, ReadOnly_ListThatWasShownIsHidden) {
    Edit();
    Row().m_readOnly = TRUE;
    EXPECT_EQ(Begin(), S_OK);
    EXPECT_FALSE(List().IsWindowVisible());
    EXPECT_FALSE(Row().m_pButton);
}

TEST_F(ListBeginEdit, NeedsTheActiveDatabase_AnotherOneWorks_Fails) {
    Row().m_bNeedsActiveDatabase = true;
    host->SetWorkingDatabase(&host->Documents().New().GetDatabase());
    EXPECT_EQ(Begin(), E_FAIL);
    EXPECT_FALSE(Row().m_pList);
    host->SetWorkingDatabase(&document->GetDatabase());
    EXPECT_EQ(Begin(), S_OK);
}

TEST_F(ListBeginEdit, WindowIsRefused_FailsAndTheNextTimeTriesAgain) {
    kvhost::Faults::FailService(L"CLzUiComboBox", 1);
    EXPECT_EQ(Begin(), E_FAIL);
    EXPECT_FALSE(Row().m_pList);
    EXPECT_FALSE(::GetDlgItem(Window(), 1002));
    EXPECT_EQ(Row().m_state, EditState_NeverShown);
    EXPECT_EQ(Begin(), S_OK);
    EXPECT_TRUE(Row().m_pList);
}

TEST_F(ListBeginEdit, DerivedRowMakesNoWindow_Fails) {
    Row().script.createWindow = [](CKvPeComboBase&, const RECT&) { return S_OK; };
    EXPECT_EQ(Begin(), E_FAIL);
}

TEST_F(ListBeginEdit, CreateComboWindow_WithAList_KeepsIt) {
    Edit();
    const HWND first = List().m_hWnd;
    EXPECT_EQ(Row().CKvPeComboBase::CreateComboWindow({0, 0, 10, 10}), S_OK);
    EXPECT_EQ(List().m_hWnd, first);
}

TEST_F(ListBeginEdit, FillLeadsThePaletteToClearTheRow_Fails) {
    Row().script.onFill = [this] { EXPECT_EQ(Row().Cleanup(), S_OK); };
    EXPECT_EQ(Begin(), E_FAIL);
    EXPECT_FALSE(Row().m_pList);
}

TEST_F(ListBeginEdit, Cleanup_WindowsGo) {
    Edit();
    const HWND list = List().m_hWnd;
    EXPECT_EQ(Row().Cleanup(), S_OK);
    EXPECT_FALSE(::IsWindow(list));
    EXPECT_FALSE(Row().m_pList);
    EXPECT_FALSE(Row().m_childWindow);
}

// Refresh

TEST_F(ListBeginEdit, Refresh_Idle_TakesEntryAndText) {
    Row().script.current = 1;
    EXPECT_EQ(Row().Handle_Refresh(), S_OK);
    EXPECT_EQ(Row().m_nCurItem, 1);
    EXPECT_EQ(Row().m_nPreviewItem, 1);
    EXPECT_EQ(Row().m_strText, L"beta");
}

TEST_F(ListBeginEdit, Refresh_NoEntryStandsForTheValue_FailsAndTextStays) {
    Row().script.current = -1;
    EXPECT_EQ(Row().Handle_Refresh(), E_FAIL);
    EXPECT_EQ(Row().m_nCurItem, -1);
    EXPECT_EQ(Row().m_nPreviewItem, -1);
    EXPECT_EQ(Row().m_strText, L"alpha");
}

TEST_F(ListBeginEdit, Refresh_ListShowsAnotherEntry_ChoiceFollows) {
    Edit();
    Row().script.current = 2;
    EXPECT_EQ(Row().Handle_Refresh(), S_OK);
    EXPECT_EQ(List().GetCurSel(), 2);
}

TEST_F(ListBeginEdit, Refresh_ListShowsTheEntry_IsPaintedAtOnce) {
    Edit();
    List().Invalidate();
    EXPECT_EQ(Row().Handle_Refresh(), S_OK);
    EXPECT_FALSE(::GetUpdateRect(List().m_hWnd, nullptr, FALSE));
}

TEST_F(ListBeginEdit, Refresh_BecameReadOnlyInEdit_ListIsLeft) {
    Edit();
    Row().m_readOnly = TRUE;
    EXPECT_EQ(Row().Handle_Refresh(), S_OK);
    EXPECT_FALSE(List().IsWindowVisible());
    EXPECT_EQ(Row().m_state, EditState_Shown);
}

TEST_F(ListBeginEdit, Refresh_WritableInEdit_ListIsShown) {
    Edit();
    List().ShowWindow(SW_HIDE);
    EXPECT_EQ(Row().Handle_Refresh(), S_OK);
    EXPECT_TRUE(List().IsWindowVisible());
}

TEST_F(ListBeginEdit, Refresh_ChoiceAccepted_ListStaysAsItIs) {
    Edit();
    Row().m_state = EditState_ChoiceAccepted;
    Row().m_readOnly = TRUE;
    EXPECT_EQ(Row().Handle_Refresh(), S_OK);
    EXPECT_TRUE(List().IsWindowVisible());
    EXPECT_EQ(Row().m_state, EditState_ChoiceAccepted);
}

TEST_F(ListBeginEdit, Init_NoEntryStandsForTheValue_Fails) {
    fw::Variant objects;
    fw::Variant properties;
    fw::Variant dispids;
    EXPECT_EQ(Row().Handle_InitEditControl(objects.Address(), properties.Address(), dispids.Address(), 0),
              E_FAIL)
        << "the base takes no empty values";
    EXPECT_CALLS(Calls());
}

// Entries

TEST_F(ListBeginEdit, ItemText_OutsideOfTheEntries_IsEmpty) {
    EXPECT_EQ(Row().CKvPeComboBase::GetItemText(0), L"") << "without a list";
    Edit();
    EXPECT_EQ(Row().CKvPeComboBase::GetItemText(-1), L"");
    EXPECT_EQ(Row().CKvPeComboBase::GetItemText(3), L"");
    EXPECT_EQ(Row().CKvPeComboBase::GetItemText(2), L"gamma");
}

TEST_F(ListBeginEdit, RowWithoutEntries_BaseHasNone) {
    EXPECT_EQ(Row().CKvPeComboBase::GetCurrentItem(), -1);
    EXPECT_EQ(Row().CKvPeComboBase::FillList(), S_OK);
    EXPECT_EQ(Row().CKvPeComboBase::SetSelectedItem(1), S_OK);
}

TEST_F(ListBeginEdit, PresetNumber_WithoutAList_OneIsMadeHiddenAndTakesTheChoice) {
    Row().PresetNumber(2);
    ASSERT_TRUE(Row().m_pList);
    EXPECT_FALSE(List().IsWindowVisible());
    EXPECT_EQ(List().GetCurSel(), 2);
    EXPECT_CALLS(Calls(), "CLzUiComboBox 1002", "fill");
}

TEST_F(ListBeginEdit, PresetText_FirstEntryThatSortsEqualIsChosen) {
    Edit();
    Row().PresetText(L"beta");
    EXPECT_EQ(List().GetCurSel(), 1);
    Row().PresetText(L"omega");
    EXPECT_EQ(List().GetCurSel(), 1);
}

TEST_F(ListBeginEdit, ChosenEntryText_IsThatOfTheValue) {
    CString text;
    Row().script.current = 1;
    EXPECT_TRUE(Row().GetChosenEntryText(text));
    EXPECT_EQ(text, L"beta");
    Row().script.current = -1;
    EXPECT_FALSE(Row().GetChosenEntryText(text));
}

}  // namespace
