// The list, what is read as an entry and what an entry writes.
#include "tests/unit/families/EnumBench.h"

namespace {

using kvtest::c_property;
using kvtest::Long;
using kvtest::Texts;
using Numbers = std::vector<long>;

class EnumBase : public kvtest::EnumTest {};

TEST_F(EnumBase, GetCurrentItem_ReadFails_IsNone) {
    MakeTyped(L"A", Long(20));
    EXPECT_EQ(Init(), S_OK);
    objects[0]->At(c_property).getResult = E_ACCESSDENIED;
    EXPECT_EQ(row->GetCurrentItem(), -1);
    EXPECT_EQ(row->Handle_Refresh(), E_FAIL);
    EXPECT_EQ(row->m_strText.View(), L"szMiddle");  // what was shown stays
}

TEST_F(EnumBase, GetCurrentItem_ValueWithoutEntry_KeepsTheText) {
    MakeTyped(L"A", Long(20));
    EXPECT_EQ(Init(), S_OK);
    objects[0]->At(c_property).Set(25L);
    EXPECT_EQ(row->GetCurrentItem(), -1);
    EXPECT_EQ(row->Handle_Refresh(), E_FAIL);
    EXPECT_EQ(row->m_strText.View(), L"szMiddle");
}

TEST_F(EnumBase, GetCurrentItem_SameValueTwice_IsTheFirstEntry) {
    MakeBrowsing(L"A", Long(20)).At(c_property).predefinedValues = {Long(20), Long(20), Long(30)};
    EXPECT_EQ(Init(), S_OK);
    EXPECT_EQ(row->m_nCurItem, 0);
}

TEST_F(EnumBase, GetCurrentItem_Unspecified_IsItsEntry) {
    MakeTyped(L"A", Long(20), kvhost::OffersUnspecified).At(c_property).unspecifiedAllowed = true;
    objects[0]->At(c_property).unspecified = true;
    objects[0]->At(c_property).unspecifiedText = L"none";
    EXPECT_EQ(Init(), S_OK);
    EXPECT_EQ(row->m_nCurItem, 3);
    EXPECT_EQ(row->m_strText.View(), L"none");
}

TEST_F(EnumBase, GetCurrentItem_NothingChanged_LeavesTheListAlone) {
    MakeTyped(L"A", Long(20));
    EXPECT_EQ(Init(), S_OK);
    Open();
    List().AddString(L"mine");
    EXPECT_EQ(row->GetCurrentItem(), 1);
    EXPECT_EQ(Rows().size(), 4U);
    MakeTyped(L"B", Long(30));
}

TEST_F(EnumBase, GetCurrentItem_EntriesChanged_FillsTheList) {
    MakeTyped(L"A", Long(20), kvhost::OffersUnspecified);
    EXPECT_EQ(Init(), S_OK);
    Open();
    objects[0]->At(c_property).unspecifiedAllowed = true;
    objects[0]->At(c_property).unspecifiedText = L"none";
    EXPECT_EQ(row->GetCurrentItem(), 1);
    EXPECT_EQ(Rows(), (Texts{L"szSmall", L"szMiddle", L"szBig", L"none"}));
}

TEST_F(EnumBase, FillList_WithoutWindow_Fails) {
    MakeTyped(L"A", Long(20));
    EXPECT_EQ(Init(), S_OK);
    EXPECT_EQ(row->FillList(), E_FAIL);
}

TEST_F(EnumBase, FillList_KeepsTheOrderOfTheEntries) {
    MakeBrowsing(L"A", Long(20)).At(c_property).predefinedStrings = {L"c", L"a", L"b"};
    EXPECT_EQ(Init(), S_OK);
    Open();
    EXPECT_EQ(Rows(), (Texts{L"c", L"a", L"b"}));
    EXPECT_EQ(List().GetCurSel(), 1);
}

TEST_F(EnumBase, FillList_NotesEntriesOfTheHostThatStandForNoValue) {
    kvhost::ScriptedObject& object = MakeBrowsing(L"A", Long(20));
    object.At(c_property).predefinedValues = {Long(-1001), Long(20), Long(-1000)};
    EXPECT_EQ(Init(), S_OK);
    EXPECT_EQ(row->m_nVariesItem, -1);
    Open();
    EXPECT_EQ(row->m_nVariesItem, 0);
    EXPECT_EQ(row->m_nUnspecifiedItem, 2);
}

TEST_F(EnumBase, GetItemText_WithAndWithoutTheWindow) {
    MakeTyped(L"A", Long(20));
    EXPECT_EQ(Init(), S_OK);
    for (const bool withWindow : {false, true}) {
        EXPECT_EQ(row->GetItemText(0).View(), L"szSmall") << withWindow;
        EXPECT_EQ(row->GetItemText(-1).View(), L"") << withWindow;
        EXPECT_EQ(row->GetItemText(3).View(), L"") << withWindow;
        if (!withWindow) {
            Open();
        }
    }
}

TEST_F(EnumBase, SetSelectedItem_WritesTheEntrysValueToAllObjects) {
    MakeTyped(L"A", Long(10));
    MakeTyped(L"B", Long(20));
    EXPECT_EQ(Init(), S_OK);
    EXPECT_EQ(row->SetSelectedItem(2), S_OK);
    EXPECT_EQ(objects[0]->At(c_property).Get().lVal, 30);
    EXPECT_EQ(objects[1]->At(c_property).Get().lVal, 30);
    EXPECT_EQ(row->Numbers(), (Numbers{10, 20, 30}));  // the varies entry has gone
    EXPECT_EQ(row->m_nVariesItem, -1);
}

TEST_F(EnumBase, SetSelectedItem_NoSuchEntry_Fails) {
    EXPECT_EQ(row->SetSelectedItem(0), E_FAIL);
    MakeTyped(L"A", Long(10));
    EXPECT_EQ(Init(), S_OK);
    EXPECT_EQ(row->SetSelectedItem(-1), E_FAIL);
    EXPECT_EQ(row->SetSelectedItem(3), E_FAIL);
    EXPECT_TRUE(objects[0]->At(c_property).puts.empty());
}

TEST_F(EnumBase, SetSelectedItem_UnspecifiedEntry_WritesTheState) {
    MakeTyped(L"A", Long(10), kvhost::OffersUnspecified).At(c_property).unspecifiedAllowed = true;
    EXPECT_EQ(Init(), S_OK);
    journal.Clear();
    EXPECT_EQ(row->SetSelectedItem(3), S_OK);
    EXPECT_TRUE(objects[0]->At(c_property).unspecified);
    EXPECT_TRUE(objects[0]->At(c_property).puts.empty());
}

TEST_F(EnumBase, SetSelectedItem_RefusedWrite_KeepsTheEntries) {
    MakeTyped(L"A", Long(10));
    MakeTyped(L"B", Long(20));
    EXPECT_EQ(Init(), S_OK);
    for (const auto& object : objects) {
        object->At(c_property).putResult = E_ACCESSDENIED;
    }
    EXPECT_EQ(row->SetSelectedItem(2), E_ACCESSDENIED);
    EXPECT_EQ(row->Numbers(), (Numbers{10, 20, 30, -1001}));
}

TEST_F(EnumBase, SetSelectedItem_InAPreview_LeavesTheOpenListAlone) {
    MakeTyped(L"A", Long(10));
    MakeTyped(L"B", Long(20));
    EXPECT_EQ(Init(), S_OK);
    Open();
    host->Editor().SetPreviewStarted(true);
    host->Editor().SetPreviewRecording(true);
    EXPECT_EQ(row->SetSelectedItem(2), S_OK);
    host->Editor().SetPreviewRecording(false);
    host->Editor().SetPreviewStarted(false);
    EXPECT_EQ(Rows().size(), 4U);
    EXPECT_EQ(row->Numbers(), (Numbers{10, 20, 30, -1001}));
    EXPECT_EQ(objects[1]->At(c_property).Get().lVal, 30);
}

// The palette refreshes its rows in the middle of a write.
TEST_F(EnumBase, SetSelectedItem_RefreshDuringTheWrite_WritesTheValueToTheRest) {
    MakeBrowsing(L"A", Long(10));
    MakeBrowsing(L"B", Long(10));
    EXPECT_EQ(Init(), S_OK);
    objects[0]->script.onCall = [&](const std::wstring& operation) {
        if (operation == L"Invoke" && !objects[0]->At(c_property).puts.empty()) {
            return;
        }
        if (operation == L"Invoke") {
            objects[0]->script.onCall = nullptr;
            fw::Ignore(row->Handle_Refresh());
        }
    };
    EXPECT_EQ(row->SetSelectedItem(2), S_OK);
    EXPECT_EQ(objects[1]->At(c_property).Get().lVal, 30);
}

TEST_F(EnumBase, EndEdit_ChosenEntry_IsWrittenAndShown) {
    MakeBrowsing(L"A", Long(10));
    EXPECT_EQ(Init(), S_OK);
    Open();
    List().SetCurSel(2);
    EXPECT_EQ(row->EndEdit(), S_OK);
    EXPECT_EQ(objects[0]->At(c_property).Get().lVal, 30);
    EXPECT_EQ(row->m_nCurItem, 2);
    EXPECT_EQ(row->m_strText.View(), L"big");
    EXPECT_EQ(List().GetCurSel(), 2);
}

}  // namespace
