#include "tests/unit/core/ControlBench.h"

namespace {

using kvhost::ScriptedDynamicProperty;
using kvhost::ScriptedObject;
using kvtest::c_property;
using kvtest::SelectionArrays;

class CKvPeCtrlBase_Unspecified : public kvtest::ControlTest {
protected:
    ScriptedObject& MakeUnspecified(const wchar_t* name, bool unspecified = true) {
        ScriptedObject& object = MakeObject(name, L"same", kvhost::OffersUnspecified);
        object.At(c_property).unspecifiedAllowed = true;
        object.At(c_property).unspecified = unspecified;
        object.At(c_property).unspecifiedText = L"none";
        return object;
    }

    HRESULT Check(ScriptedObject& object) {
        return control.CheckPropertyForUnspecifiedValue(c_property, &object, value.Address(), &isUnspecified);
    }
    HRESULT Check(ScriptedDynamicProperty& property, ScriptedObject& object) {
        return control.CheckPropertyForUnspecifiedValue(property.Identity(), static_cast<IDispatch*>(&object),
                                                        value.Address(), &isUnspecified);
    }

    bool isUnspecified = false;
};

TEST_F(CKvPeCtrlBase_Unspecified, Check_NullPointers_ReturnsPointerError) {
    IDispatch* const object = &MakeUnspecified(L"A");
    IDispatch* const none = nullptr;
    IUnknown* const unknown = object;
    IUnknown* const noUnknown = nullptr;
    VARIANT* const given = value.Address();
    EXPECT_EQ(control.CheckPropertyForUnspecifiedValue(c_property, none, given, &isUnspecified), E_POINTER);
    EXPECT_EQ(control.CheckPropertyForUnspecifiedValue(c_property, object, nullptr, &isUnspecified),
              E_POINTER);
    EXPECT_EQ(control.CheckPropertyForUnspecifiedValue(c_property, object, given, nullptr), E_POINTER);
    EXPECT_EQ(control.CheckPropertyForUnspecifiedValue(noUnknown, unknown, given, &isUnspecified), E_POINTER);
    EXPECT_EQ(control.CheckPropertyForUnspecifiedValue(unknown, unknown, nullptr, &isUnspecified), E_POINTER);
    EXPECT_EQ(control.CheckPropertyForUnspecifiedValue(unknown, unknown, given, nullptr), E_POINTER);
    EXPECT_NO_CALLS(journal);
}

TEST_F(CKvPeCtrlBase_Unspecified, Check_NoSupport_LeavesEverything) {
    control.m_unspecifiedText = L"kept";
    isUnspecified = true;
    EXPECT_EQ(Check(MakeObject(L"A")), S_OK);
    EXPECT_TRUE(isUnspecified);
    EXPECT_EQ(control.m_unspecifiedText, L"kept");
    EXPECT_EQ(Check(MakeProperty(L"P", kvhost::OffersByObject), *objects[0]), S_OK);
    EXPECT_EQ(control.m_unspecifiedText, L"kept");
}

TEST_F(CKvPeCtrlBase_Unspecified, Check_UnspecifiedObject_GivesItsText) {
    value = fw::Variant::FromString(L"older");
    EXPECT_EQ(Check(MakeUnspecified(L"A")), S_OK);
    EXPECT_TRUE(isUnspecified);
    EXPECT_EQ(ValueText(), L"none");
    EXPECT_TRUE(control.m_allowUnspecified);
    EXPECT_EQ(control.GetUnspecifiedString(), L"none");
    EXPECT_CALLS(journal, "IsUnspecifiedAllowed A 5", "GetUnspecifiedText A 5", "IsUnspecified A 5");
}

TEST_F(CKvPeCtrlBase_Unspecified, Check_SpecifiedObject_KeepsValueAndAllowsTheState) {
    EXPECT_EQ(Check(MakeUnspecified(L"A", false)), S_OK);
    EXPECT_FALSE(isUnspecified);
    EXPECT_TRUE(value.IsEmpty());
    EXPECT_TRUE(control.m_allowUnspecified);
}

TEST_F(CKvPeCtrlBase_Unspecified, Check_ObjectWithoutText_TakesTheModulesText) {
    MakeUnspecified(L"A").At(c_property).unspecifiedText.reset();
    EXPECT_EQ(Check(*objects[0]), S_OK);
    EXPECT_EQ(ValueText(), L"<Unspecified>");
}

TEST_F(CKvPeCtrlBase_Unspecified, Check_StateCannotBeAsked_ReturnsTheFailure) {
    MakeUnspecified(L"A").At(c_property).isUnspecifiedResult = E_ACCESSDENIED;
    EXPECT_EQ(Check(*objects[0]), E_ACCESSDENIED);
    EXPECT_FALSE(isUnspecified);
    EXPECT_TRUE(control.m_allowUnspecified);
}

TEST_F(CKvPeCtrlBase_Unspecified, Check_DispidNoLongerAllowed_KeepsTheFlagAndEmptiesTheText) {
    ScriptedObject& object = MakeUnspecified(L"A");
    EXPECT_EQ(Check(object), S_OK);
    object.At(c_property).unspecifiedAllowed = false;
    EXPECT_EQ(Check(object), S_OK);
    EXPECT_TRUE(control.m_allowUnspecified);
    EXPECT_TRUE(control.m_unspecifiedText.IsEmpty());
}

TEST_F(CKvPeCtrlBase_Unspecified, Check_DynamicNoLongerAllowed_ClearsTheFlagToo) {
    ScriptedDynamicProperty& property =
        MakeProperty(L"P", kvhost::OffersByObject | kvhost::OffersUnspecified);
    property.shared.unspecifiedAllowed = true;
    EXPECT_EQ(Check(property, MakeObject(L"A")), S_OK);
    EXPECT_TRUE(control.m_allowUnspecified);
    property.shared.unspecifiedAllowed = false;
    EXPECT_EQ(Check(property, *objects[0]), S_OK);
    EXPECT_FALSE(control.m_allowUnspecified);
    EXPECT_TRUE(control.m_unspecifiedText.IsEmpty());
}

TEST_F(CKvPeCtrlBase_Unspecified, Check_AllowanceCannotBeAsked_ReturnsTheFailure) {
    control.m_unspecifiedText = L"kept";
    MakeUnspecified(L"A").At(c_property).isUnspecifiedAllowedResult = E_ACCESSDENIED;
    EXPECT_EQ(Check(*objects[0]), E_ACCESSDENIED);
    EXPECT_TRUE(control.m_unspecifiedText.IsEmpty());
    EXPECT_CALLS(journal, "IsUnspecifiedAllowed A 5");
}

TEST_F(CKvPeCtrlBase_Unspecified, Check_Dynamic_AsksWithTheObjectAsKey) {
    ScriptedDynamicProperty& property =
        MakeProperty(L"P", kvhost::OffersByObject | kvhost::OffersUnspecified);
    property.shared.unspecifiedAllowed = true;
    property.shared.unspecified = true;
    property.shared.unspecifiedText = L"none";
    ScriptedObject& object = MakeObject(L"A");
    const ULONG before = object.References();
    EXPECT_EQ(Check(property, object), S_OK);
    EXPECT_EQ(ValueText(), L"none");
    EXPECT_EQ(object.References(), before);
    EXPECT_CALLS(journal, "IsUnspecifiedAllowed P A", "GetUnspecifiedText P A", "IsUnspecified P A");
}

TEST_F(CKvPeCtrlBase_Unspecified, Check_DynamicWithoutObject_AsksWithTheNullKey) {
    ScriptedDynamicProperty& property =
        MakeProperty(L"P", kvhost::OffersByObject | kvhost::OffersUnspecified);
    property.shared.unspecifiedAllowed = true;
    EXPECT_EQ(control.CheckPropertyForUnspecifiedValue(property.Identity(), static_cast<IUnknown*>(nullptr),
                                                       value.Address(), &isUnspecified),
              S_OK);
    EXPECT_TRUE(control.m_allowUnspecified);
    EXPECT_CALLS(journal, "IsUnspecifiedAllowed P null", "GetUnspecifiedText P null", "IsUnspecified P null");
}

// In the read loop

TEST_F(CKvPeCtrlBase_Unspecified, Read_UnspecifiedThenSpecified_Varies) {
    Select(SelectionArrays().Add(&MakeUnspecified(L"A")).Add(&MakeUnspecified(L"B", false)));
    EXPECT_EQ(Read(), S_OK);
    EXPECT_EQ(type, ValueType_Varies);
    EXPECT_EQ(ValueText(), L"none");
    EXPECT_EQ(control.comparisons, 0);
}

TEST_F(CKvPeCtrlBase_Unspecified, Read_SpecifiedThenUnspecified_Varies) {
    Select(SelectionArrays().Add(&MakeUnspecified(L"A", false)).Add(&MakeUnspecified(L"B")));
    EXPECT_EQ(Read(), S_OK);
    EXPECT_EQ(type, ValueType_Varies);
    EXPECT_EQ(ValueText(), L"same");
    EXPECT_EQ(control.comparisons, 0);
}

TEST_F(CKvPeCtrlBase_Unspecified, Read_AllUnspecified_StaysUnspecifiedWithVariesTextInTheValue) {
    Select(SelectionArrays().Add(&MakeUnspecified(L"A")).Add(&MakeUnspecified(L"B")));
    EXPECT_EQ(Read(), S_OK);
    EXPECT_EQ(type, ValueType_Unspecified);
    EXPECT_EQ(ValueText(), L"*VARIES*");
    EXPECT_EQ(control.m_unspecifiedText, L"none");
}

TEST_F(CKvPeCtrlBase_Unspecified, Read_StateCannotBeAsked_ReadsTheValue) {
    MakeUnspecified(L"A").At(c_property).isUnspecifiedResult = E_FAIL;
    MakeUnspecified(L"B").At(c_property).isUnspecifiedResult = E_FAIL;
    Select(SelectionArrays().Add(objects[0].Get()).Add(objects[1].Get()));
    EXPECT_EQ(Read(), S_OK);
    EXPECT_EQ(type, ValueType_Specific);
    EXPECT_EQ(ValueText(), L"same");
}

TEST_F(CKvPeCtrlBase_Unspecified, Read_UnspecifiedDynamic_ReadsNoValueButTheReadOnlyState) {
    ScriptedDynamicProperty& property =
        MakeProperty(L"P", kvhost::OffersByObject | kvhost::OffersUnspecified);
    property.shared.unspecifiedAllowed = true;
    property.shared.unspecified = true;
    property.shared.unspecifiedText = L"none";
    property.shared.readOnly = TRUE;
    Select(SelectionArrays().AddDynamic(&MakeObject(L"A"), &property));
    EXPECT_EQ(Read(), S_OK);
    EXPECT_EQ(type, ValueType_Unspecified);
    EXPECT_TRUE(control.m_readOnly);
    EXPECT_CALLS(journal, "IsUnspecifiedAllowed P A", "GetUnspecifiedText P A", "IsUnspecified P A",
                 "IsPropertyReadOnly P");
}

// SetPropertyValueAsUnspecified

TEST_F(CKvPeCtrlBase_Unspecified, Set_Null_ReturnsPointerError) {
    EXPECT_EQ(control.SetPropertyValueAsUnspecified(c_property, static_cast<IDispatch*>(nullptr), 1),
              E_POINTER);
    EXPECT_EQ(control.SetPropertyValueAsUnspecified(static_cast<IUnknown*>(nullptr), nullptr, 1), E_POINTER);
}

TEST_F(CKvPeCtrlBase_Unspecified, Set_NoSupport_Fails) {
    EXPECT_EQ(control.SetPropertyValueAsUnspecified(c_property, &MakeObject(L"A"), 1), E_FAIL);
    EXPECT_EQ(control.SetPropertyValueAsUnspecified(MakeProperty(L"P", kvhost::OffersByObject).Identity(),
                                                    static_cast<IDispatch*>(objects[0].Get()), 1),
              E_FAIL);
}

TEST_F(CKvPeCtrlBase_Unspecified, Set_NotAllowedOrNotAnswered_Fails) {
    ScriptedObject& object = MakeUnspecified(L"A");
    object.At(c_property).unspecifiedAllowed = false;
    EXPECT_EQ(control.SetPropertyValueAsUnspecified(c_property, &object, 1), E_FAIL);
    object.At(c_property).unspecifiedAllowed = true;
    object.At(c_property).isUnspecifiedAllowedResult = E_ACCESSDENIED;
    EXPECT_EQ(control.SetPropertyValueAsUnspecified(c_property, &object, 1), E_FAIL);
    EXPECT_CALLS(journal, "IsUnspecifiedAllowed A 5", "IsUnspecifiedAllowed A 5");
}

TEST_F(CKvPeCtrlBase_Unspecified, Set_OnlyNumbersAboveZero_SwitchTheStateOn) {
    ScriptedObject& object = MakeUnspecified(L"A");
    for (const int number : {2, 1, 0, -1}) {
        journal.Clear();
        EXPECT_EQ(control.SetPropertyValueAsUnspecified(c_property, &object, number), S_OK);
        EXPECT_CALLS(journal, "IsUnspecifiedAllowed A 5",
                     number > 0 ? "SetUnspecified A 5 -1" : "SetUnspecified A 5 0");
    }
}

TEST_F(CKvPeCtrlBase_Unspecified, Set_Refused_Fails) {
    MakeUnspecified(L"A").At(c_property).setUnspecifiedResult = E_ACCESSDENIED;
    EXPECT_EQ(control.SetPropertyValueAsUnspecified(c_property, objects[0].Get(), 1), E_FAIL);
}

TEST_F(CKvPeCtrlBase_Unspecified, Set_Dynamic_AsksWithTheObjectAsKey) {
    ScriptedDynamicProperty& property =
        MakeProperty(L"P", kvhost::OffersByObject | kvhost::OffersUnspecified);
    property.shared.unspecifiedAllowed = true;
    ScriptedObject& object = MakeObject(L"A");
    const ULONG before = object.References();
    EXPECT_EQ(control.SetPropertyValueAsUnspecified(property.Identity(), static_cast<IDispatch*>(&object), 1),
              S_OK);
    EXPECT_EQ(object.References(), before);
    EXPECT_CALLS(journal, "IsUnspecifiedAllowed P A", "SetUnspecified P A -1");
}

}  // namespace
