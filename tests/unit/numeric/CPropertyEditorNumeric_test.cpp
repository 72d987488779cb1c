#include "numeric/CPropertyEditorNumeric.h"

#include "core/ChildIds.h"
#include "core/ExpressionState.h"
#include "tests/unit/numeric/NumericBench.h"

namespace {

using kvhost::ScriptedObject;
using kvtest::c_property;
using kvtest::SelectionArrays;

class NumericRow : public kvtest::NumberRowTest<CPropertyEditorNumeric> {
protected:
    void InitOne(double number, unsigned interfaces = 0) {
        Init(SelectionArrays().Add(&MakeNumber(L"A", number, interfaces)));
    }
    void InitInteger(long number) {
        ScriptedObject& object = MakeNumber(L"A", 0);
        object.At(c_property).Set(number);
        Init(SelectionArrays().Add(&object));
    }
};

// Reading

TEST_F(NumericRow, Read_NullOutput_IsRefused) {
    EXPECT_EQ(row.GetPropertyValue(nullptr, type), E_POINTER);
    EXPECT_NO_CALLS(journal);
}

TEST_F(NumericRow, Read_AnotherDocumentWorks_FailsAndReadsNothing) {
    InitOne(18.5);
    MakeAnotherDocumentWork();
    value = fw::Variant::FromLong(7);
    EXPECT_EQ(row.GetPropertyValue(value.Address(), type), E_FAIL);
    EXPECT_EQ(value.Get().lVal, 7);
    EXPECT_TRUE(kvtest::CallsOnly(journal, {"Invoke"}).empty());
}

TEST_F(NumericRow, Read_Fails_FailureAsItStandsAndTheVariantThatCameIn) {
    InitOne(18.5);
    FirstValue().getResult = DISP_E_MEMBERNOTFOUND;
    value = fw::Variant::FromString(L"former");
    EXPECT_EQ(row.GetPropertyValue(value.Address(), type), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(ValueText(), L"former");
}

TEST_F(NumericRow, Read_Specific_IsTheHostsText) {
    InitOne(18.5);
    SetVariable(L"LUNITS", 4);
    EXPECT_EQ(ReadRow(), S_OK);
    EXPECT_EQ(type, ValueType_Specific);
    EXPECT_EQ(ValueText(), L"1'-6 1/2\"");
    EXPECT_CALLS(NumberCalls(), "Invoke A get 5", "kvdbRToS 18.5 -1 -1");
}

TEST_F(NumericRow, Read_AsksForTheDocumentFirst) {
    InitOne(18.5);
    EXPECT_EQ(ReadRow(), S_OK);
    EXPECT_CALLS(journal, "kvdbHostApplicationServices", "workingDatabase", "kvDocManagerPtr", "curDocument",
                 "database", "Invoke A get 5", "kvdbHostApplicationServices", "workingDatabase",
                 "kvDocManagerPtr", "curDocument", "database", "kvdbRToS 18.5 -1 -1");
}

TEST_F(NumericRow, Read_Integer_IsDecimal) {
    InitInteger(-12);
    SetVariable(L"LUNITS", 4);
    EXPECT_EQ(ReadRow(), S_OK);
    EXPECT_EQ(ValueText(), L"-12");
}

TEST_F(NumericRow, Read_Varies_TheVariantIsNoText) {
    Init(SelectionArrays().Add(&MakeNumber(L"A", 1)).Add(&MakeNumber(L"B", 2)));
    EXPECT_EQ(ReadRow(), S_OK);
    EXPECT_EQ(type, ValueType_Varies);
    EXPECT_TRUE(value.Is(VT_R8));
}

TEST_F(NumericRow, Read_LengthsThatPrintAlike_AreOneValue) {
    Init(SelectionArrays().Add(&MakeNumber(L"A", 1.00004)).Add(&MakeNumber(L"B", 1.00003)));
    EXPECT_EQ(ReadRow(), S_OK);
    EXPECT_EQ(type, ValueType_Specific);
    EXPECT_EQ(ValueText(), L"1.0000");
    SetVariable(L"LUPREC", 5);
    EXPECT_EQ(ReadRow(), S_OK);
    EXPECT_EQ(type, ValueType_Varies);
}

TEST_F(NumericRow, Read_ExpressionState_ShowsItsPictureOnThePickButton) {
    InitOne(1, kvhost::OffersExpression);
    FirstValue().expressionSupported = true;
    EXPECT_EQ(ReadRow(), S_OK);
    EXPECT_EQ(row.m_expressionState, ExpressionState_NoExpression);
    const CustomButton* const pick = row.Button(KVPE_ID_PICK_BUTTON);
    ASSERT_NE(pick, nullptr);
    EXPECT_TRUE(pick->m_pPicture);
    FirstValue().expression = L"2*a";
    EXPECT_EQ(ReadRow(), S_OK);
    EXPECT_EQ(row.m_expressionState, ExpressionState_Shared);
    EXPECT_EQ(row.Button(KVPE_ID_PICK_BUTTON), pick);
    EXPECT_EQ(row.m_buttons.GetSize(), 1);
}

TEST_F(NumericRow, Read_NoExpressions_ShowsNoPickButton) {
    InitOne(1);
    EXPECT_EQ(ReadRow(), S_OK);
    EXPECT_EQ(row.Button(KVPE_ID_PICK_BUTTON), nullptr);
}

// Comparing

TEST_F(NumericRow, Compare_TextFormsCount) {
    EXPECT_EQ(Compare(fw::Variant::FromDouble(1.00004), fw::Variant::FromDouble(1.00003)), 0);
    EXPECT_EQ(Compare(fw::Variant::FromDouble(1.0001), fw::Variant::FromDouble(1.0002)), -1);
    EXPECT_EQ(Compare(fw::Variant::FromLong(3), fw::Variant::FromShort(3)), 0);
    SetVariable(L"LUPREC", 0);
    EXPECT_EQ(Compare(fw::Variant::FromLong(3), fw::Variant::FromDouble(3.2)), 0);
}

TEST_F(NumericRow, Compare_NoActiveDocument_AllCountAsEqual) {
    MakeAnotherDocumentWork();
    EXPECT_EQ(Compare(fw::Variant::FromDouble(1), fw::Variant::FromDouble(2)), 0);
}

TEST_F(NumericRow, Compare_FormatsBoth) {
    EXPECT_EQ(Compare(fw::Variant::FromDouble(1), fw::Variant::FromDouble(2)), -1);
    EXPECT_CALLS(NumberCalls(), "kvdbRToS 1 -1 -1", "kvdbRToS 2 -1 -1");
}

TEST_F(NumericRow, Compare_NullPointers_AreRefused) {
    int result = 5;
    EXPECT_EQ(row.ComparePropertyValue(nullptr, value.Address(), result), E_POINTER);
    EXPECT_EQ(row.ComparePropertyValue(value.Address(), nullptr, result), E_POINTER);
}

// Writing

TEST_F(NumericRow, Write_NullVariant_IsRefused) {
    EXPECT_EQ(row.SetPropertyValue(nullptr, ValueType_Specific), E_POINTER);
}

TEST_F(NumericRow, Write_Text_IsParsedUnderThePropertysType) {
    InitOne(1);
    EXPECT_EQ(WriteRow(L"2 1/2"), S_OK);
    EXPECT_CALLS(NumberCalls(), "kvdbDisToF 2 1/2 -1", "Invoke A put 5 r8:2.5");
    EXPECT_EQ(FirstValue().Get().vt, VT_R8);
}

TEST_F(NumericRow, Write_IntegerText_IsAnInteger) {
    InitInteger(1);
    EXPECT_EQ(WriteRow(L"  -12"), S_OK);
    EXPECT_EQ(FirstValue().Get().vt, VT_I4);
    EXPECT_EQ(FirstValue().Get().lVal, -12);
    for (const wchar_t* const text : {L"12 ", L"-", L"", L"1.5"}) {
        EXPECT_EQ(WriteRow(text), E_FAIL);
    }
    EXPECT_EQ(FirstValue().puts.size(), 1U);
}

TEST_F(NumericRow, Write_MalformedText_FailsAndWritesNothing) {
    InitOne(1);
    for (const wchar_t* const text : {L"", L"ten", L"1,5", L"1'"}) {
        EXPECT_EQ(WriteRow(text), E_FAIL);
    }
    EXPECT_TRUE(kvtest::CallsOnly(journal, {"Invoke", "kvedSend", "undoGroup", "On"}).empty());
}

TEST_F(NumericRow, Write_MalformedTextWhereExpressionsAre_IsTheExpression) {
    InitOne(1, kvhost::OffersExpression);
    FirstValue().expressionSupported = true;
    EXPECT_EQ(ReadRow(), S_OK);
    journal.Clear();
    EXPECT_EQ(WriteRow(L"width / 2"), S_OK);
    EXPECT_CALLS(NumberCalls(), "kvdbDisToF width / 2 -1", "SetExpression A 5 width / 2");
    EXPECT_EQ(WriteRow(L""), S_OK);
    EXPECT_EQ(FirstValue().expression, L"");
}

TEST_F(NumericRow, Write_AnotherDocumentWorks_FailsUnlessExpressionsAre) {
    InitOne(1);
    MakeAnotherDocumentWork();
    EXPECT_EQ(WriteRow(L"2"), E_FAIL);
    EXPECT_TRUE(NumberCalls().empty());
    row.m_expressionState = ExpressionState_NoExpression;
    First().interfaces |= kvhost::OffersExpression;
    FirstValue().expressionSupported = true;
    EXPECT_EQ(WriteRow(L"2"), S_OK);
    EXPECT_CALLS(NumberCalls(), "SetExpression A 5 2");
}

TEST_F(NumericRow, Write_UnspecifiedText_OnlyWhereAllowed) {
    InitOne(1, kvhost::OffersUnspecified);
    FirstValue().unspecifiedAllowed = true;
    row.m_unspecifiedText = L"none";
    row.m_allowUnspecified = false;
    EXPECT_EQ(WriteRow(L"none"), E_FAIL);
    EXPECT_CALLS(NumberCalls(), "kvdbDisToF none -1");
    row.m_allowUnspecified = true;
    journal.Clear();
    EXPECT_EQ(WriteRow(L"none"), S_OK);
    EXPECT_CALLS(NumberCalls(), "SetUnspecified A 5 -1");
    // The comparison is exact.
    EXPECT_EQ(WriteRow(L"None"), E_FAIL);
}

// What the caller says of the text stays said when the text is a number.
TEST_F(NumericRow, Write_NumberAsUnspecified_KeepsTheTypeThatCame) {
    InitOne(1, kvhost::OffersUnspecified);
    FirstValue().unspecifiedAllowed = true;
    row.m_allowUnspecified = true;
    row.m_unspecifiedText = L"none";
    EXPECT_EQ(WriteRow(L"2", ValueType_Unspecified), S_OK);
    EXPECT_CALLS(NumberCalls(), "kvdbDisToF 2 -1", "SetUnspecified A 5 -1");
    EXPECT_EQ(WriteRow(fw::Variant::FromDouble(2), ValueType_Unspecified), E_FAIL) << "that is no text";
}

TEST_F(NumericRow, Write_VariantOfThePropertysType_Passes) {
    InitOne(1);
    EXPECT_EQ(WriteRow(fw::Variant::FromDouble(3.5)), S_OK);
    EXPECT_CALLS(NumberCalls(), "Invoke A put 5 r8:3.5");
}

TEST_F(NumericRow, Write_VariantOfAnotherType_OnlyInACommandThatWritesProperties) {
    InitOne(1);
    EXPECT_EQ(WriteRow(fw::Variant::FromLong(3)), E_FAIL);
    EXPECT_CALLS(journal, "kvedIsInCommandStack 134217728");
    host->Editor().PushCommand(L"PROPERTIES", 0x8000000);
    EXPECT_EQ(WriteRow(fw::Variant::FromLong(3)), S_OK);
    EXPECT_EQ(FirstValue().Get().vt, VT_I4);
    host->Editor().PopCommand();
}

// The property's type

TEST_F(NumericRow, Init_LearnsTheTypeOfTheFirstObjectAfterTheRead) {
    ScriptedObject& first = MakeNumber(L"A", 0);
    first.At(c_property).Set(fw::Variant::FromShort(7).Get());
    EXPECT_EQ(SelectionArrays().Add(&first).Add(&MakeNumber(L"B", 7)).Init(row), S_OK);
    EXPECT_EQ(row.m_propertyVarType, VT_I2);
    EXPECT_CALLS(kvtest::CallsOnly(journal, {"Invoke"}), "Invoke A get 5", "Invoke B get 5",
                 "Invoke A get 5");
}

TEST_F(NumericRow, Init_FirstReadFails_TypeIsStillAsked) {
    ScriptedObject& object = MakeNumber(L"A", 1);
    object.At(c_property).getResult = DISP_E_MEMBERNOTFOUND;
    EXPECT_EQ(SelectionArrays().Add(&object).Init(row), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(row.m_propertyVarType, VT_R8);
}

TEST_F(NumericRow, Construction_TypeIsZeroAndSideIsNone) {
    EXPECT_EQ(row.m_propertyVarType, 0);
    EXPECT_EQ(row.m_nButtonSide, 0);
    EXPECT_EQ(WriteRow(L"5"), E_FAIL);
}

class NumericProbe : public NumericRow {};

TEST_F(NumericProbe, NoObject_CountsAsReal) {
    EXPECT_TRUE(row.ProbePropertyValueType());
    EXPECT_EQ(row.m_propertyVarType, VT_R8);
    EXPECT_NO_CALLS(journal);
}

TEST_F(NumericProbe, EmptyValue_CountsAsReal) {
    InitOne(1);
    FirstValue().Set(fw::Variant().Get());
    EXPECT_TRUE(row.ProbePropertyValueType());
    EXPECT_EQ(row.m_propertyVarType, VT_R8);
}

TEST_F(NumericProbe, ReadFails_IsAFailure) {
    InitInteger(1);
    EXPECT_EQ(row.m_propertyVarType, VT_I4);
    FirstValue().getResult = E_FAIL;
    EXPECT_FALSE(row.ProbePropertyValueType());
    EXPECT_EQ(row.m_propertyVarType, VT_R8);
}

struct MissingValueCase {
    DISPID dispid;
    SCODE code;
    CLSID classId;
    bool isTolerated;
};

constexpr CLSID c_firstClass{0x82A6B685, 0x6316, 0x4A73, {0xB2, 0x87, 0xCC, 0x2C, 0x59, 0xBF, 0xB6, 0x42}};
constexpr CLSID c_secondClass{0xCBECB295, 0x246A, 0x4A97, {0x8F, 0xF8, 0x4E, 0x6C, 0x7F, 0xE3, 0xE1, 0x49}};
constexpr CLSID c_partsClass{0x6D6809F5, 0xE09B, 0x45F7, {0xA9, 0x02, 0x79, 0x0F, 0x39, 0x81, 0x00, 0xBA}};
constexpr auto c_noValue = static_cast<SCODE>(0x80200003);
constexpr auto c_partsDiffer = static_cast<SCODE>(0x80200002);

class MissingValues : public NumericRow, public testing::WithParamInterface<MissingValueCase> {};

TEST_P(MissingValues, AreToleratedForTheirClassesAndPropertyAlone) {
    ScriptedObject& object = MakeNumber(L"A", 1, kvhost::OffersIdentity);
    object.At(GetParam().dispid).Set(1.0);
    object.classId = GetParam().classId;
    Init(SelectionArrays().Add(&object, GetParam().dispid));
    object.At(GetParam().dispid).getResult = DISP_E_EXCEPTION;
    object.At(GetParam().dispid).exception.scode = GetParam().code;
    EXPECT_EQ(row.ProbePropertyValueType(), GetParam().isTolerated);
    EXPECT_EQ(row.m_propertyVarType, VT_R8);
}

INSTANTIATE_TEST_SUITE_P(Table, MissingValues,
                         testing::Values(MissingValueCase{10, c_noValue, c_firstClass, true},
                                         MissingValueCase{10, c_noValue, c_secondClass, true},
                                         MissingValueCase{10, c_noValue, CLSID{}, false},
                                         MissingValueCase{11, c_noValue, c_firstClass, false},
                                         MissingValueCase{10, c_partsDiffer, c_firstClass, false},
                                         MissingValueCase{1, c_partsDiffer, c_partsClass, false}));

class NumericDynamicProbe : public NumericRow {
protected:
    kvhost::ScriptedDynamicProperty& InitDynamic(unsigned interfaces) {
        kvhost::ScriptedDynamicProperty& property =
            MakeProperty(L"P", kvhost::OffersByObject | kvhost::OffersById);
        property.shared.Set(2.5);
        Init(SelectionArrays().AddDynamic(&MakeNumber(L"A", 0), &property));
        property.interfaces = interfaces;
        return property;
    }
};

TEST_F(NumericDynamicProbe, ByObject_PropertyTellsItsType) {
    InitDynamic(kvhost::OffersByObject | kvhost::OffersById).shared.valueType = VT_I2;
    EXPECT_TRUE(row.ProbePropertyValueType());
    EXPECT_EQ(row.m_propertyVarType, VT_I2);
    EXPECT_CALLS(NumberCalls(), "GetCurrentValueType P");
}

TEST_F(NumericDynamicProbe, ById_PropertyTellsItsType) {
    InitDynamic(kvhost::OffersById).shared.valueType = VT_I4;
    EXPECT_TRUE(row.ProbePropertyValueType());
    EXPECT_EQ(row.m_propertyVarType, VT_I4);
    EXPECT_CALLS(NumberCalls(), "GetCurrentValueType P");
}

TEST_F(NumericDynamicProbe, ByObject_TypeIsNotTold_TheValuesTypeCounts) {
    InitDynamic(kvhost::OffersByObject).shared.Set(5L);
    EXPECT_TRUE(row.ProbePropertyValueType());
    EXPECT_EQ(row.m_propertyVarType, VT_I4);
    EXPECT_CALLS(NumberCalls(), "GetCurrentValueType P", "GetCurrentValueData P A");
}

TEST_F(NumericDynamicProbe, ById_TypeIsNotTold_AnEmptyValueCountsAsReal) {
    InitDynamic(kvhost::OffersById).shared.Set(fw::Variant().Get());
    EXPECT_TRUE(row.ProbePropertyValueType());
    EXPECT_EQ(row.m_propertyVarType, VT_R8);
    EXPECT_CALLS(NumberCalls(), "GetCurrentValueType P", "GetCurrentValueData P null");
}

TEST_F(NumericDynamicProbe, NeitherTypeNorValue_IsAFailure) {
    InitDynamic(kvhost::OffersByObject).shared.getResult = E_FAIL;
    EXPECT_FALSE(row.ProbePropertyValueType());
    EXPECT_EQ(row.m_propertyVarType, VT_R8);
}

TEST_F(NumericDynamicProbe, NoFormOfTheProperty_IsAFailure) {
    InitDynamic(0);
    EXPECT_FALSE(row.ProbePropertyValueType());
}

}  // namespace
