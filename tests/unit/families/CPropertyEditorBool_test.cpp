#include "families/CPropertyEditorBool.h"

#include "core/ModuleTexts.h"
#include "tests/unit/families/ChoiceBench.h"

namespace {

using kvtest::c_property;
using kvtest::Texts;

class OpenBoolRow : public CPropertyEditorBool {
public:
    using CPropertyEditorBool::CPropertyEditorBool;
    using CPropertyEditorBool::m_allowUnspecified;
    using CPropertyEditorBool::m_nCurItem;
    using CPropertyEditorBool::m_pList;
    using CPropertyEditorBool::m_strText;
};

fw::Variant Truth(bool truth) {
    return fw::Variant::FromBool(truth);
}

class BoolRow : public kvtest::ChoiceTest<OpenBoolRow> {
protected:
    bool IsTrue(std::size_t object) { return objects[object]->At(dispid).Get().boolVal != VARIANT_FALSE; }
    void AllowUnspecified(bool allowed) {
        for (const auto& object : objects) {
            object->At(dispid).unspecifiedAllowed = allowed;
            object->At(dispid).unspecifiedText = L"none";
        }
    }
    const std::wstring varies{VariesText().View()};
};

TEST_F(BoolRow, TrueAndFalse_AreTheFirstTwoEntries) {
    MakeObjectOf(L"A", Truth(true));
    EXPECT_EQ(Init(), S_OK);
    EXPECT_EQ(row->m_nCurItem, 0);
    EXPECT_EQ(row->m_strText.View(), L"Yes");
    objects[0]->At(c_property).Set(Truth(false).Get());
    EXPECT_EQ(row->Handle_Refresh(), S_OK);
    EXPECT_EQ(row->m_nCurItem, 1);
    EXPECT_EQ(row->m_strText.View(), L"No");
    Open();
    EXPECT_EQ(Rows(), (Texts{L"Yes", L"No"}));
    EXPECT_EQ(List().GetCurSel(), 1);
}

TEST_F(BoolRow, Texts_OfADynamicPropertyWithTwoNames) {
    MakeObject(L"A");
    kvhost::ScriptedDynamicProperty& property =
        MakeProperty(L"P", kvhost::OffersByObject | kvhost::OffersById);
    property.shared.Set(Truth(true).Get());
    property.names = {L"open", L"shut"};
    EXPECT_EQ(InitDynamic(property), S_OK);
    EXPECT_EQ(row->m_strText.View(), L"open");
    EXPECT_EQ(row->GetItemText(1).View(), L"shut");
    EXPECT_EQ(kvtest::CallsOnly(journal, {"GetPropertyNameCount", "GetPropertyName"}),
              (kvtest::CallLines{"GetPropertyNameCount P", "GetPropertyName P 0", "GetPropertyName P 1"}));
}

TEST_F(BoolRow, Texts_OfADynamicPropertyWithAnotherCount_AreThoseOfTheObject) {
    MakeObject(L"A", L"", kvhost::OffersBrowsing).At(DISPID_DYNAMIC).predefinedStrings = {L"on", L"off"};
    kvhost::ScriptedDynamicProperty& property =
        MakeProperty(L"P", kvhost::OffersByObject | kvhost::OffersById);
    property.shared.Set(Truth(false).Get());
    property.names = {L"open", L"shut", L"ajar"};
    EXPECT_EQ(InitDynamic(property), S_OK);
    EXPECT_EQ(row->m_strText.View(), L"off");
}

TEST_F(BoolRow, Texts_OfTheObject) {
    MakeObjectOf(L"A", Truth(false), kvhost::OffersBrowsing).At(c_property).predefinedStrings = {
        L"on", L"off", L"more"};
    EXPECT_EQ(Init(), S_OK);
    EXPECT_EQ(row->m_strText.View(), L"off");
    EXPECT_EQ(row->GetItemText(0).View(), L"on");
    EXPECT_EQ(objects[0]->script.Calls(L"GetPredefinedStrings"), 1U);  // asked once
}

TEST_F(BoolRow, Texts_OfTheObjectFail_AreTheRowsOwn) {
    MakeObjectOf(L"A", Truth(false), kvhost::OffersBrowsing)
        .script.FailCall(L"GetPredefinedStrings", 0, E_NOTIMPL);
    EXPECT_EQ(Init(), S_OK);
    EXPECT_EQ(row->m_strText.View(), L"No");
}

TEST_F(BoolRow, UnspecifiedAndVaries_StandBehindTheTwo) {
    MakeObjectOf(L"A", Truth(true), kvhost::OffersUnspecified);
    MakeObjectOf(L"B", Truth(false), kvhost::OffersUnspecified);
    AllowUnspecified(true);
    EXPECT_EQ(Init(), S_OK);
    EXPECT_EQ(row->m_nCurItem, 3);
    EXPECT_EQ(row->m_strText.View(), varies);
    Open();
    EXPECT_EQ(Rows(), (Texts{L"Yes", L"No", L"none", varies}));
    EXPECT_EQ(List().GetCurSel(), 3);
}

TEST_F(BoolRow, VariesAlone_StandsThird) {
    MakeObjectOf(L"A", Truth(true));
    MakeObjectOf(L"B", Truth(false));
    EXPECT_EQ(Init(), S_OK);
    EXPECT_EQ(row->m_nCurItem, 2);
    Open();
    EXPECT_EQ(Rows(), (Texts{L"Yes", L"No", varies}));
    EXPECT_EQ(row->GetItemText(2).View(), varies);
}

TEST_F(BoolRow, Unspecified_IsTheThird) {
    MakeObjectOf(L"A", Truth(true), kvhost::OffersUnspecified);
    AllowUnspecified(true);
    objects[0]->At(c_property).unspecified = true;
    EXPECT_EQ(Init(), S_OK);
    EXPECT_EQ(row->m_nCurItem, 2);
    EXPECT_EQ(row->m_strText.View(), L"none");
}

TEST_F(BoolRow, VariesThatEnds_LosesItsRow) {
    MakeObjectOf(L"A", Truth(true));
    MakeObjectOf(L"B", Truth(false));
    EXPECT_EQ(Init(), S_OK);
    Open();
    objects[1]->At(c_property).Set(Truth(true).Get());
    EXPECT_EQ(row->Handle_Refresh(), S_OK);
    EXPECT_EQ(Rows(), (Texts{L"Yes", L"No"}));
    EXPECT_EQ(row->m_nCurItem, 0);
    objects[1]->At(c_property).Set(Truth(false).Get());
    EXPECT_EQ(row->Handle_Refresh(), S_OK);
    EXPECT_EQ(Rows(), (Texts{L"Yes", L"No", varies}));
    EXPECT_EQ(List().GetCurSel(), 2);
}

TEST_F(BoolRow, UnspecifiedThatIsNoLongerAllowed_LosesItsRow) {
    MakeObjectOf(L"A", Truth(true), kvhost::OffersUnspecified);
    MakeObjectOf(L"B", Truth(false), kvhost::OffersUnspecified);
    AllowUnspecified(true);
    EXPECT_EQ(Init(), S_OK);
    Open();
    AllowUnspecified(false);
    row->m_allowUnspecified = false;  // a row by dispatch id does not forget it by itself
    EXPECT_EQ(row->Handle_Refresh(), S_OK);
    EXPECT_EQ(Rows(), (Texts{L"Yes", L"No", varies}));
    EXPECT_EQ(row->m_nCurItem, 2);
    EXPECT_EQ(row->m_strText.View(), varies);
}

TEST_F(BoolRow, UnspecifiedThatBecomesAllowed_StandsBeforeVaries) {
    MakeObjectOf(L"A", Truth(true), kvhost::OffersUnspecified);
    MakeObjectOf(L"B", Truth(false), kvhost::OffersUnspecified);
    EXPECT_EQ(Init(), S_OK);
    AllowUnspecified(true);
    EXPECT_EQ(row->Handle_Refresh(), S_OK);
    EXPECT_EQ(row->m_nCurItem, 3);
    EXPECT_EQ(row->m_strText.View(), varies);
}

TEST_F(BoolRow, ReadFails_KeepsTheText) {
    MakeObjectOf(L"A", Truth(true));
    EXPECT_EQ(Init(), S_OK);
    objects[0]->At(c_property).getResult = E_ACCESSDENIED;
    EXPECT_EQ(row->GetCurrentItem(), -1);
    EXPECT_EQ(row->Handle_Refresh(), E_FAIL);
    EXPECT_EQ(row->m_strText.View(), L"Yes");
}

TEST_F(BoolRow, ValueThatIsNoTruth_HasNoEntry) {
    MakeObject(L"A", L"perhaps");
    EXPECT_EQ(Init(), E_FAIL);
    EXPECT_EQ(row->m_nCurItem, -1);
}

TEST_F(BoolRow, FillList_WithoutWindow_Fails) {
    MakeObjectOf(L"A", Truth(true));
    EXPECT_EQ(Init(), S_OK);
    EXPECT_EQ(row->FillList(), E_FAIL);
}

TEST_F(BoolRow, SetSelectedItem_WritesTruths) {
    MakeObjectOf(L"A", Truth(true));
    MakeObjectOf(L"B", Truth(false));
    EXPECT_EQ(Init(), S_OK);
    EXPECT_EQ(row->SetSelectedItem(1), S_OK);
    EXPECT_FALSE(IsTrue(0));
    EXPECT_FALSE(IsTrue(1));
    EXPECT_EQ(row->SetSelectedItem(0), S_OK);
    EXPECT_EQ(objects[1]->At(c_property).Get().boolVal, VARIANT_TRUE);
    EXPECT_EQ(row->SetSelectedItem(-1), E_FAIL);
}

TEST_F(BoolRow, SetSelectedItem_UnspecifiedRow_WritesTheState) {
    MakeObjectOf(L"A", Truth(true), kvhost::OffersUnspecified);
    AllowUnspecified(true);
    EXPECT_EQ(Init(), S_OK);
    EXPECT_EQ(row->SetSelectedItem(2), S_OK);
    EXPECT_TRUE(objects[0]->At(c_property).unspecified);
    EXPECT_TRUE(objects[0]->At(c_property).puts.empty());
}

TEST_F(BoolRow, SetSelectedItem_VariesRow_IsNoValueToWrite) {
    MakeObjectOf(L"A", Truth(true));
    MakeObjectOf(L"B", Truth(false));
    EXPECT_EQ(Init(), S_OK);
    EXPECT_EQ(row->SetSelectedItem(2), E_INVALIDARG);
    EXPECT_TRUE(objects[0]->At(c_property).puts.empty());
}

constexpr DISPID c_constraintForm = 85;
constexpr CLSID c_classes[] = {
    {0x0D3897F5, 0xB1C6, 0x44A1, {0xA0, 0xD8, 0x7F, 0x64, 0x5F, 0x6B, 0xB9, 0x80}},
    {0x20A717D1, 0x9D4B, 0x45E2, {0xA3, 0x82, 0xBF, 0xF2, 0x76, 0x04, 0xCB, 0x33}},
    {0xE532BF49, 0xCC98, 0x4FF7, {0xB3, 0x9A, 0x63, 0x0E, 0x14, 0xC4, 0xE5, 0x9B}},
    {0x53D14ED5, 0xFF5E, 0x40BF, {0x90, 0x0C, 0x76, 0xBF, 0x10, 0x47, 0x33, 0x66}},
    {0x9FFB97D4, 0x55B4, 0x42DA, {0x8C, 0x11, 0x9A, 0x61, 0x96, 0xD1, 0x92, 0x06}},
    {0x93C1A226, 0xACA2, 0x4670, {0xB9, 0x2E, 0xF2, 0xE3, 0x35, 0xD7, 0x58, 0x46}},
};

class ConstraintForm : public BoolRow {
protected:
    kvhost::ScriptedObject& MakeConstraint(const wchar_t* name, const CLSID& classId, unsigned interfaces) {
        kvhost::ScriptedObject& object = MakeObject(name, L"", interfaces);
        object.classId = classId;
        object.At(dispid).Set(Truth(true).Get());
        return object;
    }
    kvtest::CallLines WriteAndGetMarks() {
        EXPECT_EQ(Init(), S_OK);
        journal.Clear();
        EXPECT_EQ(row->SetSelectedItem(1), S_OK);
        return kvtest::CallsOnly(journal,
                                 {"kvedSendModelessOperationStart", "kvedSendModelessOperationEnded"});
    }
    ConstraintForm() { dispid = c_constraintForm; }

    const kvtest::CallLines c_plain{"kvedSendModelessOperationStart ZRB_CHGPROP",
                                    "kvedSendModelessOperationEnded ZRB_CHGPROP"};
    const kvtest::CallLines c_marked{
        "kvedSendModelessOperationStart ZRB_CHGCONSTRFORM", "kvedSendModelessOperationStart ZRB_CHGPROP",
        "kvedSendModelessOperationEnded ZRB_CHGPROP", "kvedSendModelessOperationEnded ZRB_CHGCONSTRFORM"};
};

TEST_F(ConstraintForm, EachOfTheSixClasses_IsMarked) {
    for (const CLSID& classId : c_classes) {
        objects.clear();
        row = std::make_unique<OpenBoolRow>(&shell, &shell);
        MakeConstraint(L"A", classId, kvhost::OffersIdentity);
        EXPECT_EQ(WriteAndGetMarks(), c_marked) << std::hex << classId.Data1;
    }
}

TEST_F(ConstraintForm, PartOfAnObject_IsAskedForItsClassToo) {
    MakeConstraint(L"A", c_classes[3], kvhost::OffersTransientIdentity);
    EXPECT_EQ(WriteAndGetMarks(), c_marked);
}

TEST_F(ConstraintForm, FirstMatchAmongTheObjects_IsEnough) {
    MakeConstraint(L"A", IID_IUnknown, kvhost::OffersIdentity);
    MakeConstraint(L"B", c_classes[0], kvhost::OffersIdentity);
    MakeConstraint(L"C", c_classes[1], kvhost::OffersIdentity);
    EXPECT_EQ(WriteAndGetMarks(), c_marked);
    const auto asked = kvtest::CallsOnly(journal, {"GetClassId"});
    EXPECT_EQ(std::count(asked.begin(), asked.end(), "GetClassId C"), 0);
}

TEST_F(ConstraintForm, OtherClasses_WriteWithoutAMarkOfTheirOwn) {
    MakeConstraint(L"A", IID_IUnknown, kvhost::OffersIdentity);
    MakeConstraint(L"B", c_classes[0], 0);
    EXPECT_EQ(WriteAndGetMarks(), c_plain);
}

TEST_F(ConstraintForm, OtherProperty_IsNotMarked) {
    dispid = c_constraintForm + 1;
    MakeConstraint(L"A", c_classes[0], kvhost::OffersIdentity);
    EXPECT_EQ(WriteAndGetMarks(), c_plain);
}

TEST_F(ConstraintForm, Preview_IsNotMarked) {
    MakeConstraint(L"A", c_classes[0], kvhost::OffersIdentity);
    EXPECT_EQ(Init(), S_OK);
    host->Editor().SetPreviewStarted(true);
    host->Editor().SetPreviewRecording(true);
    journal.Clear();
    EXPECT_EQ(row->SetSelectedItem(1), S_OK);
    host->Editor().SetPreviewRecording(false);
    host->Editor().SetPreviewStarted(false);
    EXPECT_EQ(kvtest::CallsOnly(journal, {"kvedSendModelessOperationStart"}), kvtest::CallLines{});
}

}  // namespace
