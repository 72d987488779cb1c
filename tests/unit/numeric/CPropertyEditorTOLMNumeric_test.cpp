#include "numeric/CPropertyEditorTOLMNumeric.h"

#include "core/ChildIds.h"
#include "core/ExpressionState.h"
#include "tests/unit/numeric/NumericBench.h"

namespace {

using kvtest::c_property;
using kvtest::SelectionArrays;

class TolmRow : public kvtest::NumberRowTest<CPropertyEditorTOLMNumeric> {
protected:
    void InitOne(double number, unsigned interfaces = 0) {
        Init(SelectionArrays().Add(&MakeNumber(L"A", number, interfaces)));
    }
};

TEST_F(TolmRow, Construction_HasNoUnitsNoSideAndNoType) {
    EXPECT_EQ(row.m_numericType, PE_TOLM_NOUNITS);
    EXPECT_EQ(row.m_nButtonSide, 0);
    EXPECT_EQ(row.m_propertyVarType, 0);
}

struct TypeCase {
    KvPeNumericType type;
    bool isAccepted;
    const char* toText;
    const char* toNumber;
};

class TolmTypes : public TolmRow, public testing::WithParamInterface<TypeCase> {};

TEST_P(TolmTypes, ChooseTheRoutinesOrAreRefused) {
    ASSERT_EQ(row.SetNumericDataType(PE_TOLM_RAW_ANGLE), S_OK);
    EXPECT_EQ(row.SetNumericDataType(GetParam().type), GetParam().isAccepted ? S_OK : E_FAIL);
    InitOne(1.5);
    if (GetParam().isAccepted) {
        EXPECT_EQ(row.m_numericType, GetParam().type);
        EXPECT_EQ(ReadRow(), S_OK);
        EXPECT_EQ(WriteRow(L"0"), S_OK);
        EXPECT_CALLS(NumberCalls(), "Invoke A get 5", GetParam().toText, GetParam().toNumber,
                     "Invoke A put 5 r8:0");
        EXPECT_EQ(FirstValue().Get().vt, VT_R8);
        return;
    }
    EXPECT_EQ(row.m_numericType, PE_TOLM_RAW_ANGLE);
    // A row that has the type otherwise gives it no text and reads none.
    row.m_numericType = GetParam().type;
    EXPECT_EQ(ReadRow(), S_OK);
    EXPECT_EQ(ValueText(), L"");
    EXPECT_EQ(WriteRow(L"0.5"), E_FAIL);
    EXPECT_CALLS(NumberCalls(), "Invoke A get 5");
}

INSTANTIATE_TEST_SUITE_P(
    Table, TolmTypes,
    testing::Values(TypeCase{PE_TOLM_DISTANCE, true, "kvdbRToS 1.5 -1 -1", "kvdbDisToF 0 -1"},
                    TypeCase{PE_TOLM_ANGLE, true, "kvdbAngToS 1.5 -1 -1", "kvdbAngToF 0 -1"},
                    TypeCase{PE_TOLM_NOUNITS, true, "kvdbRToS 1.5 2 -1", "kvdbDisToF 0 2"},
                    TypeCase{PE_TOLM_OTHER, false, "", ""}, TypeCase{PE_TOLM_ANGLEPLUS360, false, "", ""},
                    TypeCase{PE_TOLM_RELATIVE_ANGLE, false, "", ""},
                    TypeCase{PE_TOLM_RAW_ANGLE, true, "kvdbRawAngToS 1.5 -1 -1", "kvdbRawAngToF 0 -1"},
                    TypeCase{static_cast<KvPeNumericType>(7), false, "", ""}));

TEST_F(TolmRow, Read_NullOutputAndOtherDocument_AreRefused) {
    EXPECT_EQ(row.GetPropertyValue(nullptr, type), E_POINTER);
    InitOne(1);
    MakeAnotherDocumentWork();
    value = fw::Variant::FromLong(7);
    EXPECT_EQ(row.GetPropertyValue(value.Address(), type), E_FAIL);
    EXPECT_EQ(value.Get().lVal, 7);
    EXPECT_TRUE(kvtest::CallsOnly(journal, {"Invoke"}).empty());
}

TEST_F(TolmRow, Angles_AreInTheDrawingsFormat) {
    ASSERT_EQ(row.SetNumericDataType(PE_TOLM_ANGLE), S_OK);
    InitOne(0.7853981633974483);
    SetVariable(L"AUNITS", 4);
    SetVariable(L"AUPREC", 4);
    EXPECT_EQ(ReadRow(), S_OK);
    EXPECT_EQ(ValueText(), L"N 45d0'0\" E");
    EXPECT_EQ(WriteRow(L"N 30d W"), S_OK);
    EXPECT_NEAR(FirstValue().Get().dblVal, 2.0943951023931953, 1e-12);
}

TEST_F(TolmRow, Read_LengthsThatPrintAlike_AreOneValue) {
    ASSERT_EQ(row.SetNumericDataType(PE_TOLM_DISTANCE), S_OK);
    Init(SelectionArrays().Add(&MakeNumber(L"A", 1.00004)).Add(&MakeNumber(L"B", 1.00003)));
    EXPECT_EQ(ReadRow(), S_OK);
    EXPECT_EQ(type, ValueType_Specific);
    EXPECT_EQ(Compare(fw::Variant::FromDouble(1), fw::Variant::FromDouble(1.0002)), -1);
}

TEST_F(TolmRow, Compare_DirectionsThatPrintAlike_AreOneValue) {
    ASSERT_EQ(row.SetNumericDataType(PE_TOLM_ANGLE), S_OK);
    EXPECT_EQ(Compare(fw::Variant::FromDouble(0), fw::Variant::FromDouble(6.283185307179586)), 0);
    ASSERT_EQ(row.SetNumericDataType(PE_TOLM_RAW_ANGLE), S_OK);
    EXPECT_EQ(Compare(fw::Variant::FromDouble(0), fw::Variant::FromDouble(6.283185307179586)), -1);
}

TEST_F(TolmRow, Compare_NoActiveDocument_AllCountAsEqual) {
    MakeAnotherDocumentWork();
    EXPECT_EQ(Compare(fw::Variant::FromDouble(1), fw::Variant::FromDouble(2)), 0);
}

TEST_F(TolmRow, Write_NumberVariant_OnlyInACommandThatWritesProperties) {
    InitOne(1);
    EXPECT_EQ(row.SetPropertyValue(nullptr, ValueType_Specific), E_POINTER);
    EXPECT_EQ(WriteRow(fw::Variant::FromDouble(3)), E_FAIL);
    host->Editor().PushCommand(L"PROPERTIES", 0x8000000);
    EXPECT_EQ(WriteRow(fw::Variant::FromDouble(3)), S_OK);
    host->Editor().PopCommand();
    EXPECT_EQ(FirstValue().Get().dblVal, 3);
}

TEST_F(TolmRow, Write_MalformedText_FailsOrIsTheExpression) {
    InitOne(1, kvhost::OffersExpression);
    EXPECT_EQ(WriteRow(L""), E_FAIL);
    EXPECT_EQ(WriteRow(L"1 x"), E_FAIL);
    EXPECT_TRUE(kvtest::CallsOnly(journal, {"Invoke", "SetExpression", "kvedSend"}).empty());
    FirstValue().expressionSupported = true;
    EXPECT_EQ(ReadRow(), S_OK);
    EXPECT_NE(row.Button(KVPE_ID_PICK_BUTTON), nullptr);
    EXPECT_EQ(WriteRow(L"1 x"), S_OK);
    EXPECT_EQ(FirstValue().expression, L"1 x");
}

TEST_F(TolmRow, Write_UnspecifiedText_OnlyWhereAllowed) {
    InitOne(1, kvhost::OffersUnspecified);
    FirstValue().unspecifiedAllowed = true;
    row.m_unspecifiedText = L"none";
    row.m_allowUnspecified = false;
    EXPECT_EQ(WriteRow(L"none"), E_FAIL);
    row.m_allowUnspecified = true;
    journal.Clear();
    EXPECT_EQ(WriteRow(L"none"), S_OK);
    EXPECT_CALLS(NumberCalls(), "SetUnspecified A 5 -1");
}

struct ModeCase {
    VARIANT_BOOL mode;
    int expressionState;
    bool hasButton;
};

class CalculatorModes : public TolmRow, public testing::WithParamInterface<ModeCase> {};

TEST_P(CalculatorModes, AddTheButtonAndChooseTheSide) {
    row.m_expressionState = GetParam().expressionState;
    EXPECT_EQ(row.SetCalculatorMode(GetParam().mode), S_OK);
    const CustomButton* const button = row.Button(KVPE_ID_CALCULATOR_BUTTON);
    EXPECT_EQ(button != nullptr, GetParam().hasButton);
    EXPECT_EQ(row.m_nButtonSide, 2);
    if (button != nullptr) {
        EXPECT_TRUE(button->m_pPicture);
        EXPECT_TRUE(button->m_pDisabledPicture);
        EXPECT_TRUE(button->m_bShowWhenReadOnly);
    }
}

// A caller that passes 1 gets no button.
INSTANTIATE_TEST_SUITE_P(Table, CalculatorModes,
                         testing::Values(ModeCase{VARIANT_TRUE, 0, true}, ModeCase{1, 0, false},
                                         ModeCase{VARIANT_FALSE, 0, false}, ModeCase{2, 0, false},
                                         ModeCase{VARIANT_TRUE, 1, false}, ModeCase{VARIANT_TRUE, 3, false}));

TEST_F(TolmRow, CalculatorMode_SideThatIsSetStays) {
    row.m_nButtonSide = 1;
    EXPECT_EQ(row.SetCalculatorMode(VARIANT_TRUE), S_OK);
    EXPECT_EQ(row.m_nButtonSide, 1);
}

}  // namespace
