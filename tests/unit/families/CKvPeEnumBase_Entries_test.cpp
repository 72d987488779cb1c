// Where the entries come from, and the two that stand for no value.
#include "tests/unit/families/EnumBench.h"

namespace {

using kvtest::c_property;
using kvtest::Long;
using kvtest::Texts;
using Numbers = std::vector<long>;

class EnumEntries : public kvtest::EnumTest {
protected:
    /// Of rows by dispatch id, none forgets that an object has allowed the state: the flag is cleared by
    /// hand.
    void ForbidUnspecified() {
        for (const auto& object : objects) {
            object->At(c_property).unspecifiedAllowed = false;
        }
        row->m_allowUnspecified = false;
    }
};

TEST_F(EnumEntries, DynamicProperty_ListsNamesAndDataInTheirOrder) {
    MakeObject(L"A");
    EXPECT_EQ(InitDynamic(MakeValues()), S_OK);
    EXPECT_EQ(row->Names(), (Texts{L"low", L"high"}));
    EXPECT_EQ(row->Numbers(), (Numbers{1, 2}));
    EXPECT_EQ(row->m_nCurItem, 1);
    EXPECT_EQ(row->m_strText.View(), L"high");
    EXPECT_EQ(kvtest::CallsOnly(journal, {"GetValueCount", "GetValueName", "GetValueData"}),
              (kvtest::CallLines{"GetValueCount P", "GetValueName P 0", "GetValueData P 0",
                                 "GetValueName P 1", "GetValueData P 1"}));
}

TEST_F(EnumEntries, DynamicProperty_IndexesThatFailAreLeftOut) {
    MakeObject(L"A");
    kvhost::ScriptedDynamicProperty& property = MakeValues();
    property.values = {{L"a", Long(1)}, {L"b", Long(2)}, {L"c", Long(3)}, {L"d", Long(4)}};
    property.script.FailCall(L"GetValueName", 2, E_FAIL);
    property.script.FailCall(L"GetValueData", 2, E_FAIL);
    EXPECT_EQ(InitDynamic(property), E_FAIL);  // the value 2 has lost its entry
    EXPECT_EQ(row->Names(), (Texts{L"a", L"d"}));
}

TEST_F(EnumEntries, DynamicProperty_WithoutValues_IsRefused) {
    MakeObject(L"A");
    kvhost::ScriptedDynamicProperty& property = MakeValues();
    property.interfaces = kvhost::OffersByObject;
    EXPECT_EQ(InitDynamic(property), S_OK);  // the refusal counts as an index, the row shows nothing
    EXPECT_EQ(row->m_nCurItem, E_FAIL);
    EXPECT_EQ(row->m_strText.View(), L"");
    EXPECT_EQ(row->BuildEntryList(ValueType_Specific), E_FAIL);
}

TEST_F(EnumEntries, DynamicProperty_CountFails_IsRefused) {
    MakeObject(L"A");
    kvhost::ScriptedDynamicProperty& property = MakeValues();
    property.script.FailCall(L"GetValueCount", 0, E_ACCESSDENIED);
    EXPECT_EQ(InitDynamic(property), S_OK);
    EXPECT_EQ(row->m_nCurItem, E_FAIL);
    EXPECT_EQ(row->BuildEntryList(ValueType_Specific), E_FAIL);
}

TEST_F(EnumEntries, DynamicProperty_IsAskedForItsValuesOnce) {
    MakeObject(L"A");
    kvhost::ScriptedDynamicProperty& property = MakeValues();
    EXPECT_EQ(InitDynamic(property), S_OK);
    const fw::ComPtr<IDynamicPropertyEnum> kept = row->m_pEnumProperty;
    const ULONG references = property.References();
    EXPECT_EQ(row->BuildEntryList(ValueType_Specific), S_OK);
    EXPECT_EQ(row->m_pEnumProperty.Get(), kept.Get());
    EXPECT_EQ(property.References(), references);
}

TEST_F(EnumEntries, NoObject_IsRefused) {
    EXPECT_EQ(row->BuildEntryList(ValueType_Specific), E_FAIL);
    EXPECT_EQ(kvtest::SelectionArrays().Add(nullptr).Init(*row), E_FAIL);
    EXPECT_EQ(row->BuildEntryList(ValueType_Specific), E_FAIL);
}

TEST_F(EnumEntries, Browsing_GivesTextsAndTheirValues) {
    MakeBrowsing(L"A", Long(30));
    EXPECT_EQ(Init(), S_OK);
    EXPECT_EQ(row->Names(), (Texts{L"small", L"middle", L"big"}));
    EXPECT_EQ(row->Numbers(), (Numbers{10, 20, 30}));
    EXPECT_EQ(row->m_nCurItem, 2);
    EXPECT_EQ(row->m_pTypeEnum, nullptr);
    EXPECT_EQ(kvtest::CallsOnly(journal, {"GetPredefinedStrings", "GetPredefinedValue", "GetTypeInfo"}),
              (kvtest::CallLines{"GetPredefinedStrings A 5", "GetPredefinedValue A 5 0",
                                 "GetPredefinedValue A 5 1", "GetPredefinedValue A 5 2"}));
}

TEST_F(EnumEntries, Browsing_StringsFail_IsRefused) {
    MakeBrowsing(L"A", Long(30)).script.FailCall(L"GetPredefinedStrings", 0, E_NOTIMPL);
    EXPECT_EQ(Init(), S_OK);
    EXPECT_EQ(row->m_nCurItem, E_FAIL);
    EXPECT_EQ(row->BuildEntryList(ValueType_Specific), E_FAIL);
}

TEST_F(EnumEntries, Browsing_ValueThatIsNotImplemented_ComesFromTheTypeLibrary) {
    kvhost::ScriptedObject& object = MakeBrowsing(L"A", Long(20));
    object.typeInfo = TypeOfSizes();
    object.At(c_property).predefinedStrings = {L"small", L"middle", L"big", L"huge"};
    object.At(c_property).predefinedValues.clear();
    EXPECT_EQ(Init(), S_OK);
    EXPECT_EQ(row->Names(), (Texts{L"small", L"middle", L"big", L"huge"}));
    EXPECT_EQ(row->Numbers(), (Numbers{10, 20, 30, -9}));
    EXPECT_TRUE(row->m_entries.back().value.IsEmpty());
    EXPECT_EQ(row->m_nCurItem, 1);
    EXPECT_EQ(object.script.Calls(L"GetTypeInfo"), 1U);
}

TEST_F(EnumEntries, Browsing_ValueFailsOtherwise_EndsWithThatFailure) {
    kvhost::ScriptedObject& object = MakeBrowsing(L"A", Long(20));
    EXPECT_EQ(Init(), S_OK);
    object.script.FailCall(L"GetPredefinedValue", 2, E_ACCESSDENIED);
    EXPECT_EQ(row->BuildEntryList(ValueType_Specific), E_ACCESSDENIED);
    EXPECT_EQ(row->Names(), Texts{}) << "a part would pass for all";
    EXPECT_EQ(row->Handle_Refresh(), S_OK);
    EXPECT_EQ(row->Names(), (Texts{L"small", L"middle", L"big"}));
}

TEST_F(EnumEntries, RefreshWhileTheyAreGathered_ListsEachOnce) {
    kvhost::ScriptedObject& object = MakeBrowsing(L"A", Long(20));
    EXPECT_EQ(Init(), S_OK);
    bool refreshed = false;
    object.script.onCall = [&](const std::wstring& operation) {
        if (operation == L"GetPredefinedValue" && !std::exchange(refreshed, true)) {
            fw::Ignore(row->Handle_Refresh());
        }
    };
    EXPECT_EQ(row->BuildEntryList(ValueType_Specific), S_OK);
    EXPECT_TRUE(refreshed);
    EXPECT_EQ(row->Names(), (Texts{L"small", L"middle", L"big"}));
}

TEST_F(EnumEntries, TypeLibrary_GivesIdentifiersAndConstants) {
    kvhost::ScriptedObject& object = MakeTyped(L"A", Long(20));
    EXPECT_EQ(Init(), S_OK);
    EXPECT_EQ(row->Names(), (Texts{L"szSmall", L"szMiddle", L"szBig"}));
    EXPECT_EQ(row->m_nCurItem, 1);
    EXPECT_EQ(row->BuildEntryList(ValueType_Specific), S_OK);
    EXPECT_EQ(row->Handle_Refresh(), S_OK);
    EXPECT_EQ(object.script.Calls(L"GetTypeInfo"), 1U);  // read once and kept
}

TEST_F(EnumEntries, NoEnumeration_IsAnEmptyList) {
    MakeObjectOf(L"A", Long(20));
    EXPECT_EQ(Init(), E_FAIL);  // no entry stands for the value
    EXPECT_TRUE(row->m_entries.empty());
    EXPECT_EQ(row->m_nCurItem, -1);
}

TEST_F(EnumEntries, NoEnumerationAndValuesThatDiffer_ShowTheVariesTextAlone) {
    MakeObjectOf(L"A", Long(20));
    MakeObjectOf(L"B", Long(30));
    EXPECT_EQ(Init(), S_OK);
    EXPECT_EQ(row->Names(), Texts{std::wstring(VariesText().View())});
    EXPECT_EQ(row->m_nCurItem, 0);
    Open();
    EXPECT_EQ(Rows(), Texts{std::wstring(VariesText().View())});
    EXPECT_EQ(row->EndEdit(), S_OK);
    EXPECT_EQ(objects[0]->At(c_property).puts.size(), 0U);
}

TEST_F(EnumEntries, Pseudo_UnspecifiedStandsBeforeVaries) {
    MakeTyped(L"A", Long(10), kvhost::OffersUnspecified).At(c_property).unspecifiedAllowed = true;
    objects[0]->At(c_property).unspecifiedText = L"none";
    MakeTyped(L"B", Long(20), kvhost::OffersUnspecified).At(c_property).unspecifiedAllowed = true;
    EXPECT_EQ(Init(), S_OK);
    EXPECT_EQ(row->Numbers(), (Numbers{10, 20, 30, -1000, -1001}));
    EXPECT_EQ(row->m_nUnspecifiedItem, 3);
    EXPECT_EQ(row->m_nVariesItem, 4);
    EXPECT_EQ(row->m_nCurItem, 4);
}

TEST_F(EnumEntries, Pseudo_RemovedUnspecified_MovesVariesUp) {
    MakeTyped(L"A", Long(10), kvhost::OffersUnspecified).At(c_property).unspecifiedAllowed = true;
    MakeTyped(L"B", Long(20), kvhost::OffersUnspecified).At(c_property).unspecifiedAllowed = true;
    EXPECT_EQ(Init(), S_OK);
    ForbidUnspecified();
    EXPECT_EQ(row->Handle_Refresh(), S_OK);
    EXPECT_EQ(row->Numbers(), (Numbers{10, 20, 30, -1001}));
    EXPECT_EQ(row->m_nUnspecifiedItem, -1);
    EXPECT_EQ(row->m_nVariesItem, 3);
}

TEST_F(EnumEntries, Pseudo_DynamicPropertyThatForbidsTheState_LosesTheEntry) {
    MakeObject(L"A");
    kvhost::ScriptedDynamicProperty& property = MakeValues(kvhost::OffersUnspecified);
    property.shared.unspecifiedAllowed = true;
    EXPECT_EQ(InitDynamic(property), S_OK);
    EXPECT_EQ(row->Numbers(), (Numbers{1, 2, -1000}));
    property.shared.unspecifiedAllowed = false;
    EXPECT_EQ(row->Handle_Refresh(), S_OK);
    EXPECT_EQ(row->Numbers(), (Numbers{1, 2}));
}

TEST_F(EnumEntries, Pseudo_RemovedVaries_LeavesUnspecified) {
    MakeTyped(L"A", Long(10), kvhost::OffersUnspecified).At(c_property).unspecifiedAllowed = true;
    MakeTyped(L"B", Long(20), kvhost::OffersUnspecified).At(c_property).unspecifiedAllowed = true;
    EXPECT_EQ(Init(), S_OK);
    objects[1]->At(c_property).Set(10L);
    EXPECT_EQ(row->Handle_Refresh(), S_OK);
    EXPECT_EQ(row->Numbers(), (Numbers{10, 20, 30, -1000}));
    EXPECT_EQ(row->m_nVariesItem, -1);
    EXPECT_EQ(row->m_nCurItem, 0);
}

TEST_F(EnumEntries, Pseudo_VariesThatCameFirst_MovesUpBehindTheRemovedOne) {
    MakeTyped(L"A", Long(10), kvhost::OffersUnspecified);
    MakeTyped(L"B", Long(20), kvhost::OffersUnspecified);
    EXPECT_EQ(Init(), S_OK);
    ASSERT_EQ(row->m_nVariesItem, 3);
    objects[0]->At(c_property).unspecifiedAllowed = true;
    objects[1]->At(c_property).unspecifiedAllowed = true;
    EXPECT_EQ(row->Handle_Refresh(), S_OK);
    EXPECT_EQ(row->Numbers(), (Numbers{10, 20, 30, -1001, -1000}));
    objects[1]->At(c_property).Set(10L);
    EXPECT_EQ(row->Handle_Refresh(), S_OK);
    EXPECT_EQ(row->Numbers(), (Numbers{10, 20, 30, -1000}));
    EXPECT_EQ(row->m_nUnspecifiedItem, 3);
}

// Repair it and a list could lose its only row.
TEST_F(EnumEntries, Pseudo_AtIndexZero_Stays) {
    MakeObjectOf(L"A", Long(10), kvhost::OffersUnspecified).At(c_property).unspecifiedAllowed = true;
    objects[0]->At(c_property).unspecified = true;
    EXPECT_EQ(Init(), S_OK);
    EXPECT_EQ(row->Numbers(), Numbers{-1000});
    EXPECT_EQ(row->m_nUnspecifiedItem, 0);
    objects[0]->At(c_property).unspecified = false;
    ForbidUnspecified();
    EXPECT_EQ(row->Handle_Refresh(), E_FAIL);  // 10 has no entry
    EXPECT_EQ(row->Numbers(), Numbers{-1000});
    EXPECT_EQ(row->m_nUnspecifiedItem, 0);
}

TEST_F(EnumEntries, Cleanup_LetsTheObjectsGo) {
    kvhost::ScriptedObject& object = MakeBrowsing(L"A", Long(10));
    EXPECT_EQ(Init(), S_OK);
    EXPECT_EQ(row->Cleanup(), S_OK);
    EXPECT_EQ(row->BuildEntryList(ValueType_Specific), E_FAIL);
    row.reset();
    EXPECT_EQ(object.References(), 1U);  // the test's own
}

}  // namespace
