#include <limits>

#include "framework/com/SafeArray.h"
#include "tests/unit/core/ControlBench.h"

namespace {

using kvhost::ScriptedDynamicProperty;
using kvhost::ScriptedObject;
using kvtest::c_property;
using kvtest::SelectionArrays;

using CKvPeCtrlBase_Read = kvtest::ControlTest;

TEST_F(CKvPeCtrlBase_Read, NullValue_ReturnsPointerError) {
    EXPECT_EQ(control.GetPropertyValue(nullptr, type), E_POINTER);
}

TEST_F(CKvPeCtrlBase_Read, BeforeInit_Fails) {
    EXPECT_EQ(Read(), E_FAIL);
}

TEST_F(CKvPeCtrlBase_Read, EmptySelection_Fails) {
    Select(SelectionArrays());
    EXPECT_EQ(Read(), E_FAIL);
}

TEST_F(CKvPeCtrlBase_Read, FirstObjectNull_Fails) {
    Select(SelectionArrays().Add(nullptr).Add(&MakeObject(L"B")));
    EXPECT_EQ(Read(), E_FAIL);
    EXPECT_NO_CALLS(journal);
}

TEST_F(CKvPeCtrlBase_Read, OneObject_AsksInOrderAndComparesNothing) {
    Select(SelectionArrays().Add(&MakeObject(
        L"A", L"same", kvhost::OffersUnspecified | kvhost::OffersExpression | kvhost::OffersEditability)));
    EXPECT_EQ(Read(), S_OK);
    EXPECT_EQ(type, ValueType_Specific);
    EXPECT_EQ(ValueText(), L"same");
    EXPECT_EQ(control.comparisons, 0);
    EXPECT_CALLS(journal, "IsUnspecifiedAllowed A 5", "Invoke A get 5", "IsExpressionSupported A 5",
                 "Editable A 5");
}

TEST_F(CKvPeCtrlBase_Read, OneObject_SuccessCodeOfObject_IsHandedOn) {
    MakeObject(L"A").At(c_property).getResult = S_FALSE;
    Select(SelectionArrays().Add(objects[0].Get()));
    EXPECT_EQ(Read(), S_FALSE);
}

TEST_F(CKvPeCtrlBase_Read, OlderValueOfCaller_IsReplaced) {
    Select(SelectionArrays().Add(&MakeObject(L"A")));
    value = fw::Variant::FromString(L"older");
    EXPECT_EQ(control.GetPropertyValue(value.Address(), type), S_OK);
    EXPECT_EQ(ValueText(), L"same");
}

TEST_F(CKvPeCtrlBase_Read, TwoTextsThatDifferInCase_ShareTheFirst) {
    Select(SelectionArrays().Add(&MakeObject(L"A", L"Wall")).Add(&MakeObject(L"B", L"WALL")));
    EXPECT_EQ(Read(), S_OK);
    EXPECT_EQ(type, ValueType_Specific);
    EXPECT_EQ(ValueText(), L"Wall");
    EXPECT_EQ(control.comparisons, 1);
}

TEST_F(CKvPeCtrlBase_Read, ObjectsDisagree_ReturnsVariesWithFirstValueAndReadsNoFurther) {
    Select(SelectionArrays()
               .Add(&MakeObject(L"A", L"one"))
               .Add(&MakeObject(L"B", L"two"))
               .Add(&MakeObject(L"C", L"one", kvhost::OffersEditability)));
    objects[2]->At(c_property).editable = FALSE;
    EXPECT_EQ(Read(), S_OK);
    EXPECT_EQ(type, ValueType_Varies);
    EXPECT_EQ(ValueText(), L"one");
    EXPECT_FALSE(control.m_readOnly);
    EXPECT_CALLS(journal, "Invoke A get 5", "Invoke B get 5");
}

TEST_F(CKvPeCtrlBase_Read, DoublesThatDifferSlightly_Vary) {
    MakeObject(L"A").At(c_property).Set(1.0);
    MakeObject(L"B").At(c_property).Set(1.0000000001);
    Select(SelectionArrays().Add(objects[0].Get()).Add(objects[1].Get()));
    EXPECT_EQ(Read(), S_OK);
    EXPECT_EQ(type, ValueType_Varies);
}

TEST_F(CKvPeCtrlBase_Read, SameNumberOfTwoTypes_Varies) {
    MakeObject(L"A").At(c_property).Set(7L);
    MakeObject(L"B").At(c_property).Set(fw::Variant::FromShort(7).Get());
    Select(SelectionArrays().Add(objects[0].Get()).Add(objects[1].Get()));
    EXPECT_EQ(Read(), S_OK);
    EXPECT_EQ(type, ValueType_Varies);
}

fw::Variant NumberArray() {
    fw::Variant array;
    const LONG numbers[] = {1, 2};
    EXPECT_EQ(fw::MakeLongArray(numbers, 2, array), S_OK);
    return array;
}

TEST_F(CKvPeCtrlBase_Read, Arrays_VaryAsSoonAsThereAreTwo) {
    MakeObject(L"A").At(c_property).Set(NumberArray().Get());
    MakeObject(L"B").At(c_property).Set(NumberArray().Get());
    Select(SelectionArrays().Add(objects[0].Get()));
    EXPECT_EQ(Read(), S_OK);
    EXPECT_EQ(type, ValueType_Specific);
    EXPECT_EQ(control.Cleanup(), S_OK);
    Select(SelectionArrays().Add(objects[0].Get()).Add(objects[1].Get()));
    EXPECT_EQ(Read(), S_OK);
    EXPECT_EQ(type, ValueType_Varies);
}

TEST_F(CKvPeCtrlBase_Read, NullText_ReadsAsEmptyText) {
    VARIANT nullText{};
    nullText.vt = VT_BSTR;
    MakeObject(L"A").At(c_property).Set(nullText);
    Select(SelectionArrays().Add(objects[0].Get()));
    EXPECT_EQ(Read(), S_OK);
    ASSERT_TRUE(value.Is(VT_BSTR));
    ASSERT_NE(value.Get().bstrVal, nullptr);
    EXPECT_EQ(ValueText(), L"");
}

TEST_F(CKvPeCtrlBase_Read, NullTextAndEmptyText_AreTheSame) {
    VARIANT nullText{};
    nullText.vt = VT_BSTR;
    MakeObject(L"A", L"");
    MakeObject(L"B").At(c_property).Set(nullText);
    Select(SelectionArrays().Add(objects[0].Get()).Add(objects[1].Get()));
    EXPECT_EQ(Read(), S_OK);
    EXPECT_EQ(type, ValueType_Specific);
}

TEST_F(CKvPeCtrlBase_Read, NullArray_ReadsAsEmptyVector) {
    VARIANT nullArray{};
    nullArray.vt = VT_ARRAY;
    MakeObject(L"A").At(c_property).Set(nullArray);
    Select(SelectionArrays().Add(objects[0].Get()));
    EXPECT_EQ(Read(), S_OK);
    ASSERT_EQ(value.Type(), VT_ARRAY);
    SAFEARRAY* const array = value.Get().parray;
    ASSERT_NE(array, nullptr);
    EXPECT_EQ(array->cDims, 1);
    EXPECT_EQ(array->rgsabound[0].cElements, 0U);
}

TEST_F(CKvPeCtrlBase_Read, FailureOfAnyObject_EndsTheReadWithItsCode) {
    for (std::size_t failing = 0; failing < 3; ++failing) {
        objects.clear();
        SelectionArrays arrays;
        for (const wchar_t* const name : {L"A", L"B", L"C"}) {
            arrays.Add(&MakeObject(name));
        }
        objects[failing]->At(c_property).getResult = DISP_E_MEMBERNOTFOUND;
        Select(arrays);
        EXPECT_EQ(Read(), DISP_E_MEMBERNOTFOUND) << failing;
        EXPECT_EQ(kvtest::CallsOf(journal).size(), failing + 1);
        EXPECT_EQ(control.Cleanup(), S_OK);
    }
}

TEST_F(CKvPeCtrlBase_Read, NullObjectBehindTheFirst_IsSkipped) {
    Select(SelectionArrays().Add(&MakeObject(L"A")).Add(nullptr).Add(&MakeObject(L"C")));
    EXPECT_EQ(Read(), S_OK);
    EXPECT_EQ(type, ValueType_Specific);
    EXPECT_CALLS(journal, "Invoke A get 5", "Invoke C get 5");
}

// Read-only state

TEST_F(CKvPeCtrlBase_Read, ObjectNotEditable_MakesRowReadOnlyUntilNextRead) {
    MakeObject(L"A", L"same", kvhost::OffersEditability);
    MakeObject(L"B", L"same", kvhost::OffersEditability).At(c_property).editable = FALSE;
    MakeObject(L"C", L"same", kvhost::OffersEditability);
    Select(SelectionArrays().Add(objects[0].Get()).Add(objects[1].Get()).Add(objects[2].Get()));
    EXPECT_EQ(Read(), S_OK);
    EXPECT_TRUE(control.m_readOnly);
    EXPECT_CALLS(journal, "Invoke A get 5", "Editable A 5", "Invoke B get 5", "Editable B 5",
                 "Invoke C get 5");
    objects[1]->At(c_property).editable = TRUE;
    EXPECT_EQ(Read(), S_OK);
    EXPECT_FALSE(control.m_readOnly);
}

TEST_F(CKvPeCtrlBase_Read, RowHandedOverReadOnly_AsksNoEditability) {
    Select(SelectionArrays().Add(&MakeObject(L"A", L"same", kvhost::OffersEditability)), VARIANT_TRUE);
    EXPECT_EQ(Read(), S_OK);
    EXPECT_TRUE(control.m_readOnly);
    EXPECT_CALLS(journal, "Invoke A get 5");
}

TEST_F(CKvPeCtrlBase_Read, EditabilityThrowsHostStatus_CountsAsReadOnly) {
    MakeObject(L"A", L"same", kvhost::OffersEditability).At(c_property).editableThrows = Tolm::eWasErased;
    Select(SelectionArrays().Add(objects[0].Get()));
    EXPECT_EQ(Read(), S_OK);
    EXPECT_TRUE(control.m_readOnly);
}

TEST_F(CKvPeCtrlBase_Read, EditabilityFails_GivesNoAnswer) {
    MakeObject(L"A", L"same", kvhost::OffersEditability).At(c_property).editableResult = E_FAIL;
    objects[0]->At(c_property).editable = FALSE;
    Select(SelectionArrays().Add(objects[0].Get()));
    EXPECT_EQ(Read(), S_OK);
    EXPECT_FALSE(control.m_readOnly);
}

// Dynamic entries

TEST_F(CKvPeCtrlBase_Read, Dynamic_BothForms_PrefersTheOneByObject) {
    Select(SelectionArrays().AddDynamic(
        &MakeObject(L"A"), &MakeProperty(L"P", kvhost::OffersByObject | kvhost::OffersById |
                                                   kvhost::OffersUnspecified | kvhost::OffersExpression)));
    EXPECT_EQ(Read(), S_OK);
    EXPECT_EQ(ValueText(), L"same");
    EXPECT_CALLS(journal, "IsUnspecifiedAllowed P A", "IsExpressionSupported P A", "GetCurrentValueData P A",
                 "IsPropertyReadOnly P");
}

TEST_F(CKvPeCtrlBase_Read, Dynamic_ById_AsksObjectForItsId) {
    ScriptedObject& object = MakeObject(L"A");
    const KvDbObjectId id = MakeEntity(&object);
    Select(SelectionArrays().AddDynamic(&object, &MakeProperty(L"P", kvhost::OffersById)));
    EXPECT_EQ(Read(), S_OK);
    EXPECT_CALLS(journal, "GetObjectId A", "GetCurrentValueData P " + kvtest::ToUtf8(kvhost::AsText(id)),
                 "IsPropertyReadOnly P");
}

TEST_F(CKvPeCtrlBase_Read, Dynamic_ByIdOfObjectWithoutId_AsksWithNullId) {
    Select(SelectionArrays().AddDynamic(&MakeObject(L"A"), &MakeProperty(L"P", kvhost::OffersById)));
    EXPECT_EQ(Read(), S_OK);
    EXPECT_CALLS(journal, "GetCurrentValueData P null", "IsPropertyReadOnly P");
}

TEST_F(CKvPeCtrlBase_Read, Dynamic_IdCannotBeHad_AsksWithNullId) {
    ScriptedObject& object = MakeObject(L"A");
    MakeEntity(&object);
    object.objectIdResult = E_FAIL;
    Select(SelectionArrays().AddDynamic(&object, &MakeProperty(L"P", kvhost::OffersById)));
    EXPECT_EQ(Read(), S_OK);
    EXPECT_CALLS(journal, "GetObjectId A", "GetCurrentValueData P null", "IsPropertyReadOnly P");
}

TEST_F(CKvPeCtrlBase_Read, Dynamic_FirstWithoutPropertyOrObject_Fails) {
    Select(SelectionArrays().AddDynamic(&MakeObject(L"A"), nullptr));
    EXPECT_EQ(Read(), E_FAIL);
    EXPECT_EQ(control.Cleanup(), S_OK);
    Select(SelectionArrays().AddDynamic(objects[0].Get(), &MakeProperty(L"P", 0)));
    EXPECT_EQ(Read(), E_FAIL);
    EXPECT_EQ(control.Cleanup(), S_OK);
    Select(SelectionArrays().AddDynamic(nullptr, &MakeProperty(L"Q", kvhost::OffersByObject)));
    EXPECT_EQ(Read(), E_FAIL);
}

TEST_F(CKvPeCtrlBase_Read, Dynamic_FurtherWithoutPropertyOrObject_IsSkipped) {
    ScriptedDynamicProperty& property = MakeProperty(L"P", kvhost::OffersByObject);
    Select(SelectionArrays()
               .AddDynamic(&MakeObject(L"A"), &property)
               .AddDynamic(&MakeObject(L"B"), nullptr)
               .AddDynamic(nullptr, &property)
               .AddDynamic(&MakeObject(L"D"), &MakeProperty(L"Q", 0)));
    EXPECT_EQ(Read(), S_OK);
    EXPECT_EQ(type, ValueType_Specific);
    EXPECT_CALLS(journal, "GetCurrentValueData P A", "IsPropertyReadOnly P");
}

TEST_F(CKvPeCtrlBase_Read, Dynamic_FirstAnswerReplacesRequestedReadOnly) {
    Select(SelectionArrays().AddDynamic(&MakeObject(L"A"), &MakeProperty(L"P", kvhost::OffersByObject)),
           VARIANT_TRUE);
    EXPECT_EQ(Read(), S_OK);
    EXPECT_FALSE(control.m_readOnly);
}

TEST_F(CKvPeCtrlBase_Read, Dynamic_ReadOnlyFurtherObject_MakesRowReadOnlyAndNobodyElseIsAsked) {
    ScriptedDynamicProperty& readOnly = MakeProperty(L"Q", kvhost::OffersById);
    readOnly.shared.readOnly = TRUE;
    ScriptedDynamicProperty& property = MakeProperty(L"P", kvhost::OffersByObject);
    Select(SelectionArrays()
               .AddDynamic(&MakeObject(L"A"), &property)
               .AddDynamic(&MakeObject(L"B"), &readOnly)
               .AddDynamic(&MakeObject(L"C"), &property));
    EXPECT_EQ(Read(), S_OK);
    EXPECT_TRUE(control.m_readOnly);
    EXPECT_CALLS(journal, "GetCurrentValueData P A", "IsPropertyReadOnly P", "GetCurrentValueData Q null",
                 "IsPropertyReadOnly Q", "GetCurrentValueData P C");
}

TEST_F(CKvPeCtrlBase_Read, Dynamic_ReadFails_ReturnsItsCodeAndAsksNoReadOnlyState) {
    ScriptedDynamicProperty& property = MakeProperty(L"P", kvhost::OffersByObject);
    property.shared.getResult = E_ACCESSDENIED;
    Select(SelectionArrays().AddDynamic(&MakeObject(L"A"), &property));
    EXPECT_EQ(Read(), E_ACCESSDENIED);
    EXPECT_CALLS(journal, "GetCurrentValueData P A");
}

TEST_F(CKvPeCtrlBase_Read, Dynamic_FurtherReadFails_EndsTheRead) {
    ScriptedDynamicProperty& property = MakeProperty(L"P", kvhost::OffersByObject);
    property.For(L"B").getResult = E_ACCESSDENIED;
    property.For(L"C").Set(L"same");
    Select(SelectionArrays()
               .AddDynamic(&MakeObject(L"A"), &property)
               .AddDynamic(&MakeObject(L"B"), &property)
               .AddDynamic(&MakeObject(L"C"), &property));
    EXPECT_EQ(Read(), E_ACCESSDENIED);
    EXPECT_CALLS(journal, "GetCurrentValueData P A", "IsPropertyReadOnly P", "GetCurrentValueData P B");
}

TEST_F(CKvPeCtrlBase_Read, SelectionEndsDuringRead_StopsWithoutHarm) {
    Select(SelectionArrays().Add(&MakeObject(L"A")).Add(&MakeObject(L"B")).Add(&MakeObject(L"C")));
    objects[1]->script.onCall = [&](const std::wstring&) { EXPECT_EQ(control.Cleanup(), S_OK); };
    EXPECT_EQ(Read(), S_OK);
    EXPECT_CALLS(journal, "Invoke A get 5", "Invoke B get 5");
}

TEST_F(CKvPeCtrlBase_Read, SelectionEndsDuringRead_ObjectsAreLetGoBehindIt) {
    ScriptedObject& object = MakeObject(L"A");
    ScriptedDynamicProperty& property = MakeProperty(L"P", kvhost::OffersByObject);
    const ULONG objectBefore = object.References();
    const ULONG propertyBefore = property.References();
    Select(SelectionArrays().Add(&object).AddDynamic(&object, &property));
    const ULONG selected = object.References();
    object.script.onCall = [&](const std::wstring&) {
        EXPECT_EQ(control.Cleanup(), S_OK);
        EXPECT_EQ(object.References(), selected);
        EXPECT_EQ(Read(), E_FAIL) << "there is no selection any more";
        EXPECT_EQ(object.References(), selected) << "the outer read still uses it";
    };
    EXPECT_EQ(Read(), S_OK);
    EXPECT_EQ(object.References(), objectBefore);
    EXPECT_EQ(property.References(), propertyBefore);
}

TEST_F(CKvPeCtrlBase_Read, LeavesReferencesBalanced) {
    ScriptedObject& object = MakeObject(
        L"A", L"same", kvhost::OffersUnspecified | kvhost::OffersExpression | kvhost::OffersEditability);
    ScriptedDynamicProperty& property =
        MakeProperty(L"P", kvhost::OffersByObject | kvhost::OffersById | kvhost::OffersUnspecified);
    Select(SelectionArrays().Add(&object).AddDynamic(&object, &property));
    const ULONG objectBefore = object.References();
    const ULONG propertyBefore = property.References();
    EXPECT_EQ(Read(), S_OK);
    EXPECT_EQ(object.References(), objectBefore);
    EXPECT_EQ(property.References(), propertyBefore);
}

// ComparePropertyValue

struct Comparison {
    const char* name;
    VARIANT first;
    VARIANT second;
    HRESULT returned;
    int result;  // 5 stands for "left alone"
};

VARIANT Make(VARTYPE type, long long bits) {
    VARIANT made{};
    made.vt = type;
    made.llVal = bits;
    return made;
}

VARIANT MakeFloat(float number) {
    VARIANT made{};
    made.vt = VT_R4;
    made.fltVal = number;
    return made;
}

VARIANT MakeDouble(double number) {
    VARIANT made{};
    made.vt = VT_R8;
    made.dblVal = number;
    return made;
}

constexpr double c_nan = std::numeric_limits<double>::quiet_NaN();

const Comparison s_comparisons[] = {
    {"two types", Make(VT_I4, 1), Make(VT_I2, 1), E_FAIL, 5},
    {"I2 equal in 16 bits", Make(VT_I2, 0x10007), Make(VT_I2, 7), S_OK, 0},
    {"I2 different", Make(VT_I2, 7), Make(VT_I2, 8), S_OK, -1},
    {"BOOL equal", Make(VT_BOOL, VARIANT_TRUE), Make(VT_BOOL, VARIANT_TRUE), S_OK, 0},
    {"BOOL different", Make(VT_BOOL, VARIANT_TRUE), Make(VT_BOOL, VARIANT_FALSE), S_OK, -1},
    {"I4 equal", Make(VT_I4, 70000), Make(VT_I4, 70000), S_OK, 0},
    {"I4 different", Make(VT_I4, 70000), Make(VT_I4, 70001), S_OK, -1},
    {"INT equal", Make(VT_INT, 3), Make(VT_INT, 3), S_OK, 0},
    {"I8 differing above bit 31", Make(VT_I8, 0x500000001), Make(VT_I8, 0x900000001), S_OK, 0},
    {"I8 differing below", Make(VT_I8, 0x500000001), Make(VT_I8, 0x500000002), S_OK, -1},
    {"R4 equal", MakeFloat(0.5F), MakeFloat(0.5F), S_OK, 0},
    {"R4 different", MakeFloat(0.5F), MakeFloat(0.25F), S_OK, -1},
    {"R8 equal", MakeDouble(1.5), MakeDouble(1.5), S_OK, 0},
    {"R8 signed zeros", MakeDouble(0.0), MakeDouble(-0.0), S_OK, 0},
    {"R8 NaN", MakeDouble(c_nan), MakeDouble(c_nan), S_OK, -1},
    {"EMPTY", Make(VT_EMPTY, 0), Make(VT_EMPTY, 0), S_OK, -1},
    {"CY", Make(VT_CY, 1), Make(VT_CY, 1), S_OK, -1},
    {"DATE", Make(VT_DATE, 0), Make(VT_DATE, 0), S_OK, -1},
    {"UNKNOWN", Make(VT_UNKNOWN, 0), Make(VT_UNKNOWN, 0), S_OK, -1},
    {"UI4", Make(VT_UI4, 1), Make(VT_UI4, 1), S_OK, -1},
    {"array", Make(VT_ARRAY | VT_I4, 0), Make(VT_ARRAY | VT_I4, 0), S_OK, -1},
};

TEST_F(CKvPeCtrlBase_Read, Compare_ByType) {
    for (const Comparison& row : s_comparisons) {
        VARIANT first = row.first;
        VARIANT second = row.second;
        int result = 5;
        EXPECT_EQ(control.ComparePropertyValue(&first, &second, result), row.returned) << row.name;
        EXPECT_EQ(result, row.result) << row.name;
    }
}

TEST_F(CKvPeCtrlBase_Read, Compare_Texts_IgnoresCaseButNotLength) {
    const auto compare = [&](const wchar_t* left, const wchar_t* right) {
        fw::Variant first = fw::Variant::FromString(left);
        fw::Variant second = fw::Variant::FromString(right);
        int result = 5;
        EXPECT_EQ(control.ComparePropertyValue(first.Address(), second.Address(), result), S_OK);
        return result;
    };
    EXPECT_EQ(compare(L"Größe", L"GRÖßE"), 0);
    EXPECT_EQ(compare(L"abc", L"abcd"), -1);
    EXPECT_EQ(compare(L"", L""), 0);
    EXPECT_EQ(compare(L"a", L"b"), -1);
}

TEST_F(CKvPeCtrlBase_Read, Compare_Null_ReturnsPointerError) {
    int result = 5;
    EXPECT_EQ(control.ComparePropertyValue(nullptr, value.Address(), result), E_POINTER);
    EXPECT_EQ(control.ComparePropertyValue(value.Address(), nullptr, result), E_POINTER);
    EXPECT_EQ(result, 5);
}

}  // namespace
