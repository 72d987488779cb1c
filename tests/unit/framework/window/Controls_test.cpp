#include <gtest/gtest.h>

#include "framework/window/CButton.h"
#include "framework/window/CComboBox.h"
#include "framework/window/CEdit.h"
#include "framework/window/CListBox.h"
#include "framework/window/CStatic.h"
#include "tests/support/MessagePump.h"
#include "tests/unit/framework/window/ProbeWindow.h"

namespace {

using kvtest::Probe;
using kvtest::ProbeWindow;

class Controls : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(m_parent.Show()); }

    ProbeWindow m_parent;
};

TEST_F(Controls, Edit_CreatedHere_SeesItsFirstMessages) {
    Probe<CEdit> edit;
    ASSERT_TRUE(edit.Create(WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL, {0, 0, 100, 20}, m_parent, 1038));
    EXPECT_EQ(edit.CountOf(WM_NCCREATE), 1);
    EXPECT_EQ(edit.CountOf(WM_CREATE), 1);
    EXPECT_EQ(edit.GetDlgCtrlID(), 1038);
}

TEST_F(Controls, Edit_TypedKeys_ChangeTextAndNotifyTheParent) {
    Probe<CEdit> edit;
    ASSERT_TRUE(edit.Create(WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL, {0, 0, 100, 20}, m_parent, 1038));
    int changes = 0;
    m_parent.filter = [&](UINT message, WPARAM wParam, LPARAM, LRESULT&) {
        changes += message == WM_COMMAND && wParam == MAKEWPARAM(1038, EN_CHANGE);
        return false;
    };
    edit.SetFocus();
    edit.PostMessage(WM_KEYDOWN, 'A', 1);
    EXPECT_TRUE(kvtest::PumpUntil([&] { return edit.GetWindowTextLength() == 1; }));
    EXPECT_EQ(edit.GetWindowText(), L"a");
    EXPECT_EQ(changes, 1);
    EXPECT_TRUE(edit.GetModify());
}

TEST_F(Controls, Edit_Operations_ReachTheControl) {
    CEdit edit;
    ASSERT_TRUE(edit.Create(WS_CHILD | WS_VISIBLE | ES_MULTILINE, {0, 0, 100, 20}, m_parent, 1));
    edit.SetWindowText(L"one two");
    edit.SetSel(0, -1);
    int start = -1;
    int end = -1;
    edit.GetSel(start, end);
    EXPECT_EQ(start, 0);
    EXPECT_EQ(end, 7);
    edit.SetSel(4, 7);
    edit.ReplaceSel(L"2", TRUE);
    EXPECT_EQ(edit.GetWindowText(), L"one 2");
    EXPECT_TRUE(edit.Undo());
    EXPECT_EQ(edit.GetWindowText(), L"one two");
    edit.SetReadOnly();
    EXPECT_TRUE(edit.IsReadOnly());
    edit.SetReadOnly(FALSE);
    EXPECT_FALSE(edit.IsReadOnly());
    edit.SetRect({2, 3, 90, 18});
    EXPECT_EQ(edit.GetRect().left, 2);
    edit.SetModify(FALSE);
    EXPECT_FALSE(edit.GetModify());
    edit.DestroyWindow();
}

TEST_F(Controls, Combo_Parts_AreReachable) {
    CComboBox simple;
    EXPECT_EQ(simple.GetListWindow(), nullptr) << "no window yet";
    Probe<CComboBox> dropDown;
    ASSERT_TRUE(dropDown.Create(WS_CHILD | WS_VISIBLE | CBS_DROPDOWN, {0, 0, 100, 120}, m_parent, 1));
    Probe<CComboBox> dropList;
    ASSERT_TRUE(dropList.Create(WS_CHILD | WS_VISIBLE | CBS_DROPDOWNLIST, {0, 30, 100, 150}, m_parent, 2));
    EXPECT_NE(dropDown.GetEditWindow(), nullptr);
    EXPECT_EQ(dropList.GetEditWindow(), nullptr);
    EXPECT_NE(dropDown.GetListWindow(), nullptr);
    EXPECT_NE(dropList.GetListWindow(), nullptr);
    EXPECT_FALSE(dropList.GetButtonRect().IsEmpty());
}

TEST_F(Controls, Combo_SubclassedParts_SeeTheirMessages) {
    Probe<CComboBox> combo;
    ASSERT_TRUE(combo.Create(WS_CHILD | WS_VISIBLE | CBS_DROPDOWN, {0, 0, 100, 120}, m_parent, 1));
    combo.AddString(L"one");
    combo.AddString(L"two");
    Probe<CEdit> edit;
    Probe<CListBox> list;
    ASSERT_TRUE(edit.SubclassWindow(combo.GetEditWindow()));
    ASSERT_TRUE(list.SubclassWindow(combo.GetListWindow()));
    ::SendMessageW(edit, WM_CHAR, L'x', 1);
    EXPECT_EQ(edit.CountOf(WM_CHAR), 1);
    EXPECT_EQ(combo.GetWindowText(), L"x");
    combo.ShowDropDown();
    EXPECT_TRUE(combo.GetDroppedState());
    EXPECT_TRUE(list.IsWindowVisible());
    EXPECT_EQ(list.GetCount(), 2);
    CRect second;
    ASSERT_TRUE(list.GetItemRect(1, &second));
    EXPECT_EQ(list.ItemFromPoint({second.left + 2, second.top + 2}), 1);
    EXPECT_EQ(list.ItemFromPoint({second.left + 2, 5000}), -1);
    combo.ShowDropDown(FALSE);
    EXPECT_FALSE(combo.GetDroppedState());
    combo.DestroyWindow();
    EXPECT_EQ(list.m_hWnd, nullptr);
    EXPECT_EQ(edit.m_hWnd, nullptr);
}

TEST_F(Controls, Combo_Entries_RoundTrip) {
    CComboBox combo;
    ASSERT_TRUE(combo.Create(WS_CHILD | CBS_DROPDOWNLIST, {0, 0, 100, 120}, m_parent, 1));
    EXPECT_EQ(combo.AddString(L"b"), 0);
    EXPECT_EQ(combo.InsertString(0, L"a"), 0);
    EXPECT_NE(combo.SetItemData(1, 77), CB_ERR);
    EXPECT_EQ(combo.GetItemData(1), 77U);
    EXPECT_EQ(combo.GetCount(), 2);
    EXPECT_EQ(combo.GetLBText(1), L"b");
    EXPECT_TRUE(combo.GetLBText(9).IsEmpty());
    EXPECT_EQ(combo.FindStringExact(-1, L"B"), 1);
    EXPECT_EQ(combo.FindStringExact(-1, L"c"), CB_ERR);
    EXPECT_EQ(combo.SelectString(-1, L"b"), 1);
    EXPECT_EQ(combo.GetCurSel(), 1);
    EXPECT_EQ(combo.SetCurSel(-1), CB_ERR);
    EXPECT_EQ(combo.DeleteString(0), 1);
    const int closedHeight = combo.GetItemHeight(-1);
    combo.SetItemHeight(-1, static_cast<UINT>(closedHeight) + 10);
    EXPECT_GT(combo.GetItemHeight(-1), closedHeight);
    combo.SetDroppedWidth(300);
    EXPECT_EQ(combo.GetDroppedWidth(), 300);
    combo.ResetContent();
    EXPECT_EQ(combo.GetCount(), 0);
    combo.DestroyWindow();
}

TEST_F(Controls, ListBox_Entries_RoundTrip) {
    CListBox list;
    ASSERT_TRUE(list.Create(WS_CHILD | WS_VISIBLE | LBS_NOTIFY, {0, 0, 100, 60}, m_parent, 1));
    list.AddString(L"a");
    list.InsertString(0, L"longer");
    list.SetItemData(0, 5);
    EXPECT_EQ(list.GetItemData(0), 5U);
    EXPECT_EQ(list.GetText(0), L"longer");
    EXPECT_TRUE(list.GetText(7).IsEmpty());
    EXPECT_EQ(list.SetCurSel(1), 1);
    EXPECT_EQ(list.GetCurSel(), 1);
    EXPECT_EQ(list.FindStringExact(-1, L"a"), 1);
    EXPECT_EQ(list.DeleteString(0), 1);
    list.ResetContent();
    EXPECT_EQ(list.GetCount(), 0);
    EXPECT_EQ(list.ItemFromPoint({1, 1}), -1);
    list.DestroyWindow();
}

TEST_F(Controls, Button_Pressed_CommandReachesTheParent) {
    Probe<CButton> button;
    ASSERT_TRUE(button.Create(L"...", WS_CHILD | WS_VISIBLE, {0, 0, 20, 20}, m_parent, 1039));
    int presses = 0;
    m_parent.filter = [&](UINT message, WPARAM wParam, LPARAM lParam, LRESULT&) {
        presses += message == WM_COMMAND && wParam == MAKEWPARAM(1039, BN_CLICKED) &&
                   reinterpret_cast<HWND>(lParam) == button.m_hWnd;
        return false;
    };
    button.Click();
    EXPECT_EQ(presses, 1);
    button.PostMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
    button.PostMessage(WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
    EXPECT_TRUE(kvtest::PumpUntil([&] { return presses == 2; }));
}

TEST_F(Controls, CheckBoxAndLabel_State_RoundTrip) {
    CButton check;
    ASSERT_TRUE(check.Create(L"on", WS_CHILD | BS_AUTOCHECKBOX, {0, 0, 60, 20}, m_parent, 1));
    check.SetCheck(BST_CHECKED);
    EXPECT_EQ(check.GetCheck(), BST_CHECKED);
    EXPECT_EQ(check.GetButtonStyle(), static_cast<UINT>(BS_AUTOCHECKBOX));
    check.DestroyWindow();
    CStatic label;
    ASSERT_TRUE(label.Create(L"label", WS_CHILD, {0, 0, 60, 20}, m_parent));
    EXPECT_EQ(label.GetWindowText(), L"label");
    label.DestroyWindow();
}

TEST_F(Controls, Edit_AskedForItsKeysCursorAndWheel_MayAnswerItself) {
    Probe<CEdit> edit;
    ASSERT_TRUE(edit.Create(WS_CHILD | WS_VISIBLE, {0, 0, 100, 20}, m_parent, 1));
    edit.filter = [&](UINT message, WPARAM, LPARAM, LRESULT& result) {
        if (message == WM_GETDLGCODE) {
            result = edit.DefWindowProc() | DLGC_WANTALLKEYS;
            return true;
        }
        if (message == WM_SETCURSOR) {
            ::SetCursor(::LoadCursorW(nullptr, MAKEINTRESOURCEW(fw::ArrowCursor)));
            result = TRUE;
            return true;
        }
        return false;
    };
    const LRESULT code = ::SendMessageW(edit, WM_GETDLGCODE, 0, 0);
    EXPECT_EQ(code & (DLGC_WANTALLKEYS | DLGC_HASSETSEL), DLGC_WANTALLKEYS | DLGC_HASSETSEL);
    ::SendMessageW(edit, WM_SETCURSOR, reinterpret_cast<WPARAM>(edit.m_hWnd),
                   MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
    EXPECT_EQ(::GetCursor(), ::LoadCursorW(nullptr, MAKEINTRESOURCEW(fw::ArrowCursor)));
}

}  // namespace
