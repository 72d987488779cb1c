#include "core/ModuleTexts.h"
#include "families/CPropertyEditorText.h"
#include "refhost/testing/ScriptedObject.h"
#include "tests/support/SelectionArrays.h"
#include "tests/unit/families/RowBench.h"

namespace {

class EditRowRead : public kvtest::RowBench<CPropertyEditorText> {
protected:
    HRESULT Init(bool readOnly = false) {
        // A control that gets a second selection keeps the first: that is the core's contract.
        EXPECT_EQ(row->Cleanup(), S_OK);
        return Select(readOnly);
    }
    HRESULT Select(bool readOnly = false) {
        const kvtest::SelectionArrays arrays({object.Get()});
        return arrays.Init<CKvPeCtrlBase>(*row, readOnly ? VARIANT_TRUE : VARIANT_FALSE);
    }

    fw::ComPtr<kvhost::ScriptedObject> object = kvhost::ScriptedObject::Make(L"A");
};

TEST_F(EditRowRead, Init_Specific_ShowsTheText) {
    EXPECT_EQ(Init(), S_OK);
    EXPECT_EQ(row->m_text, L"alpha");
    EXPECT_EQ(row->GetRowText(), L"alpha");
}

TEST_F(EditRowRead, Init_Varies_ShowsTheVariesText) {
    row->script.type = ValueType_Varies;
    row->script.value = fw::Variant::FromDouble(1.5);
    EXPECT_EQ(Init(), S_OK);
    EXPECT_FALSE(VariesText().IsEmpty());
    EXPECT_EQ(row->m_text, VariesText());
}

TEST_F(EditRowRead, Init_Unspecified_ShowsTheUnspecifiedText) {
    row->script.type = ValueType_Unspecified;
    row->m_unspecifiedText = L"none given";
    EXPECT_EQ(Init(), S_OK);
    EXPECT_EQ(row->m_text, L"none given");
}

TEST_F(EditRowRead, Init_SpecificNumber_Fails) {
    row->script.value = fw::Variant::FromLong(4);
    EXPECT_EQ(Init(), E_FAIL);
}

TEST_F(EditRowRead, Init_ReadFails_ResultIsHandedOn) {
    row->script.readResult = DISP_E_MEMBERNOTFOUND;
    EXPECT_EQ(Init(), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(row->m_text, L"alpha");
}

TEST_F(EditRowRead, Init_SelectionRefused_FailsWithoutARead) {
    EXPECT_EQ(row->Handle_InitEditControl(nullptr, nullptr, nullptr, VARIANT_FALSE), E_FAIL);
    EXPECT_NO_CALLS(journal);
}

TEST_F(EditRowRead, Init_BoxExists_SpecificAndVariesReachIt) {
    ASSERT_EQ(row->CKvPeEditBase::BeginEdit(c_clientRect), S_OK);
    const HWND box = Edit().m_hWnd;
    row->script.value = fw::Variant::FromString(L"beta");
    // The box stays through Init: only the selection is exchanged.
    ASSERT_EQ(Select(), S_OK);
    EXPECT_EQ(Edit().m_hWnd, box);
    EXPECT_EQ(Edit().GetWindowText(), L"beta");
}

TEST_F(EditRowRead, Init_BoxExists_UnspecifiedLeavesItsText) {
    row->script.type = ValueType_Unspecified;
    row->m_unspecifiedText = L"none given";
    ASSERT_EQ(row->BeginEdit(c_clientRect), S_OK);
    Type(L"typed");
    ASSERT_EQ(Select(), S_OK);
    EXPECT_EQ(Edit().GetWindowText(), L"typed");
}

TEST_F(EditRowRead, Refresh_NoBox_ChangesTheRowOnly) {
    row->script.value = fw::Variant::FromString(L"beta");
    EXPECT_EQ(row->Handle_Refresh(), S_OK);
    EXPECT_EQ(row->m_text, L"beta");
}

TEST_F(EditRowRead, Refresh_InEdit_SetsTheBoxAndSelectsAll) {
    Open();
    Type(L"typed");
    Edit().SetSel(1, 1);
    row->script.value = fw::Variant::FromString(L"beta");
    EXPECT_EQ(row->Handle_Refresh(), S_OK);
    EXPECT_EQ(Edit().GetWindowText(), L"beta");
    int start = -1;
    int end = -1;
    Edit().GetSel(start, end);
    EXPECT_EQ(start, 0);
    EXPECT_EQ(end, 4);
}

TEST_F(EditRowRead, Refresh_BoxNotInEdit_KeepsTheBoxText) {
    Open();
    ASSERT_EQ(row->Handle_UIDeactivate(), S_OK);
    row->script.value = fw::Variant::FromString(L"beta");
    EXPECT_EQ(row->Handle_Refresh(), S_OK);
    EXPECT_EQ(row->m_text, L"beta");
    EXPECT_EQ(Edit().GetWindowText(), L"alpha");
}

TEST_F(EditRowRead, Refresh_ReadFails_KeepsWhatIsShown) {
    Open();
    Type(L"typed");
    row->script.readResult = E_ACCESSDENIED;
    EXPECT_EQ(row->Handle_Refresh(), E_ACCESSDENIED);
    EXPECT_EQ(row->m_text, L"alpha");
    EXPECT_EQ(Edit().GetWindowText(), L"typed");
}

}  // namespace
