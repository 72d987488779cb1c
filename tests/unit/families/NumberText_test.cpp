#include "families/NumberText.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>

#include "framework/com/Variant.h"
#include "refhost/editor/DocumentManager.h"
#include "refhost/editor/HostSession.h"
#include "refhost/testing/Faults.h"
#include "tests/support/ExpectCalls.h"

namespace {

#define DOCUMENT_TEST \
    "kvdbHostApplicationServices", "workingDatabase", "kvDocManagerPtr", "curDocument", "database"

class NumberTexts : public testing::Test {
protected:
    ~NumberTexts() override { kvhost::Faults::Reset(); }

    CString HostText(const VARIANT& value) {
        CString text(L"former");
        EXPECT_TRUE(VariantToHostText(value, text));
        return text;
    }
    CString TypeText(double number, KvPeNumericType type) {
        CString text(L"former");
        EXPECT_TRUE(NumberToTextByType(fw::Variant::FromDouble(number).Get(), text, type));
        return text;
    }
    void MakeAnotherDocumentWork() {
        host->SetWorkingDatabase(&host->Documents().New().GetDatabase());
        journal.Clear();
    }

    kvhost::HostSession host;
    kvhost::Document& document = host->Documents().New();
    kvhost::Journal journal;
};

VARIANT Tagged(VARTYPE type) {
    VARIANT value{};
    value.vt = type;
    return value;
}

TEST_F(NumberTexts, Integers_AreDecimal) {
    VARIANT value = Tagged(VT_I2);
    value.iVal = -32768;
    EXPECT_EQ(HostText(value), L"-32768");
    value = Tagged(VT_INT);
    value.intVal = -7;
    EXPECT_EQ(HostText(value), L"-7");
    value = Tagged(VT_I4);
    value.lVal = 2147483647;
    EXPECT_EQ(HostText(value), L"2147483647");
    value = Tagged(VT_I8);
    value.llVal = INT64_MIN;
    EXPECT_EQ(HostText(value), L"-9223372036854775808");
    EXPECT_TRUE(kvtest::CallsOnly(journal, {"kvdbRToS"}).empty());
}

TEST_F(NumberTexts, Reals_AreLengthsOfTheDrawing) {
    EXPECT_EQ(HostText(fw::Variant::FromDouble(18.5).Get()), L"18.5000");
    EXPECT_CALLS(journal, DOCUMENT_TEST, "kvdbRToS 18.5 -1 -1");
}

TEST_F(NumberTexts, SingleReals_AreReadAsTheEightBytesOfTheField) {
    VARIANT value = Tagged(VT_R4);
    value.fltVal = 2.5F;
    // The upper half of the field is clear: as a double it is next to nothing.
    EXPECT_EQ(HostText(value), L"0.0000");
    value.dblVal = 18.5;
    EXPECT_EQ(HostText(value), L"18.5000");
}

TEST_F(NumberTexts, OtherTypes_HaveAnEmptyTextAndSucceed) {
    for (const VARTYPE type : {VT_EMPTY, VT_NULL, VT_BOOL, VT_UI1, VT_UI4, VT_ERROR, VT_CY, VT_DATE}) {
        EXPECT_EQ(HostText(Tagged(type)), L"") << type;
    }
    EXPECT_EQ(HostText(fw::Variant::FromString(L"12").Get()), L"");
}

TEST_F(NumberTexts, ByType_TheTypeChoosesTheRoutine) {
    EXPECT_EQ(TypeText(1, PE_TOLM_DISTANCE), L"1.0000");
    EXPECT_EQ(TypeText(3.14159265358979, PE_TOLM_ANGLE), L"180");
    EXPECT_EQ(TypeText(2, PE_TOLM_NOUNITS), L"2.0000");
    EXPECT_EQ(TypeText(-3.14159265358979, PE_TOLM_RAW_ANGLE), L"-180");
    EXPECT_CALLS(kvtest::CallsOnly(journal, {"kvdbRToS", "kvdbAng", "kvdbRaw"}), "kvdbRToS 1 -1 -1",
                 "kvdbAngToS 3.14159265358979 -1 -1", "kvdbRToS 2 2 -1",
                 "kvdbRawAngToS -3.14159265358979 -1 -1");
}

TEST_F(NumberTexts, ByType_TypesWithoutATextForm_AreEmptyAndSucceed) {
    for (const KvPeNumericType type : {PE_TOLM_OTHER, PE_TOLM_ANGLEPLUS360, PE_TOLM_RELATIVE_ANGLE}) {
        EXPECT_EQ(TypeText(1, type), L"") << type;
    }
    EXPECT_TRUE(kvtest::CallsOnly(journal, {"kvdbR", "kvdbA"}).empty());
}

TEST_F(NumberTexts, AnotherDocumentWorks_ThereIsNoText) {
    MakeAnotherDocumentWork();
    CString text(L"former");
    EXPECT_FALSE(VariantToHostText(fw::Variant::FromLong(5).Get(), text));
    EXPECT_EQ(text, L"");
    text = L"former";
    EXPECT_FALSE(NumberToTextByType(fw::Variant::FromDouble(5).Get(), text, PE_TOLM_DISTANCE));
    EXPECT_EQ(text, L"");
    EXPECT_TRUE(kvtest::CallsOnly(journal, {"kvdbRToS"}).empty());
}

TEST_F(NumberTexts, HostRefuses_TextIsEmptyAndSucceeds) {
    kvhost::Faults::FailService(L"kvdbRToS", 0);
    EXPECT_EQ(HostText(fw::Variant::FromDouble(1).Get()), L"");
    EXPECT_EQ(TypeText(1, PE_TOLM_DISTANCE), L"");
}

struct IntegerCase {
    const wchar_t* text;
    bool isRead;
    long long number = 0;
};

class IntegerTexts : public testing::TestWithParam<IntegerCase> {};

TEST_P(IntegerTexts, AreReadOrRefused) {
    for (const VARTYPE type : {VT_I2, VT_I4, VT_I8, VT_INT}) {
        fw::Variant value = fw::Variant::FromString(L"former");
        EXPECT_EQ(TextToVariant(GetParam().text, type, *value.Address()), GetParam().isRead) << type;
        if (!GetParam().isRead) {
            EXPECT_TRUE(value.Is(VT_ERROR)) << type;
            continue;
        }
        ASSERT_TRUE(value.Is(type));
        const VARIANT& read = value.Get();
        EXPECT_EQ(type == VT_I2   ? read.iVal
                  : type == VT_I8 ? read.llVal
                                  : read.lVal,
                  GetParam().number)
            << type;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Table, IntegerTexts,
    testing::Values(IntegerCase{L"  -12", true, -12}, IntegerCase{L"+5", true, 5}, IntegerCase{L"12 ", false},
                    IntegerCase{L"-", false}, IntegerCase{L"+", false}, IntegerCase{L"", false},
                    IntegerCase{L"   ", false}, IntegerCase{L"1,000", true, 1}, IntegerCase{L"1.5", false},
                    IntegerCase{L"- 5", false}, IntegerCase{L"--5", false}, IntegerCase{L"\t5", false},
                    IntegerCase{L"5e1", false}, IntegerCase{L"0x5", false}, IntegerCase{L",", true, 0},
                    IntegerCase{L"007", true, 7}, IntegerCase{L"32767", true, 32767}));

TEST_F(NumberTexts, ShortInteger_KeepsSixteenBits) {
    fw::Variant value;
    EXPECT_TRUE(TextToVariant(L"65537", VT_I2, *value.Address()));
    EXPECT_EQ(value.Get().iVal, 1);
    EXPECT_TRUE(TextToVariant(L"-9223372036854775807", VT_I8, *value.Address()));
    EXPECT_EQ(value.Get().llVal, -9223372036854775807LL);
}

TEST_F(NumberTexts, Reals_AreReadByTheHost) {
    fw::Variant value;
    EXPECT_TRUE(TextToVariant(L" 1 1/2", VT_R8, *value.Address()));
    ASSERT_TRUE(value.Is(VT_R8));
    EXPECT_EQ(value.Get().dblVal, 1.5);
    EXPECT_TRUE(TextToVariant(L"0.1", VT_R4, *value.Address()));
    ASSERT_TRUE(value.Is(VT_R4));
    EXPECT_EQ(value.Get().fltVal, 0.1F);
    EXPECT_CALLS(journal, "kvdbDisToF  1 1/2 -1", "kvdbDisToF 0.1 -1");
}

TEST_F(NumberTexts, RefusedReals_AreAnError) {
    for (const VARTYPE type : {VT_R4, VT_R8}) {
        fw::Variant value = fw::Variant::FromString(L"former");
        EXPECT_FALSE(TextToVariant(L"", type, *value.Address()));
        EXPECT_TRUE(value.Is(VT_ERROR));
        EXPECT_FALSE(TextToVariant(L"ten", type, *value.Address()));
    }
}

TEST_F(NumberTexts, OtherTypes_AreNotRead) {
    for (const VARTYPE type : {VT_EMPTY, VT_BSTR, VT_BOOL, VT_UI4, VT_DATE}) {
        fw::Variant value;
        EXPECT_FALSE(TextToVariant(L"1", type, *value.Address())) << type;
        EXPECT_TRUE(value.Is(VT_ERROR)) << type;
    }
    EXPECT_NO_CALLS(journal);
}

TEST_F(NumberTexts, Reading_AsksForNoDocument) {
    MakeAnotherDocumentWork();
    fw::Variant value;
    EXPECT_TRUE(TextToVariant(L"1", VT_R8, *value.Address()));
    EXPECT_CALLS(journal, "kvdbDisToF 1 -1");
}

}  // namespace
