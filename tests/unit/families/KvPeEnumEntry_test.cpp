#include "families/KvPeEnumEntry.h"

#include <gtest/gtest.h>

#include "framework/base/Hresult.h"

namespace {

fw::Variant Value(VARTYPE type, const wchar_t* text) {
    const fw::Variant source = fw::Variant::FromString(text);
    fw::Variant value;
    EXPECT_EQ(
        ::VariantChangeTypeEx(value.Put(), const_cast<VARIANT*>(source.Address()), LOCALE_INVARIANT, 0, type),
        S_OK);
    return value;
}

struct Pair {
    const char* name;
    VARTYPE entryType;
    const wchar_t* entry;
    VARTYPE valueType;
    const wchar_t* value;
    bool same;
};

class EntryMatch : public testing::TestWithParam<Pair> {};

TEST_P(EntryMatch, FollowsTheTypeOfTheEntry) {
    const Pair& pair = GetParam();
    const fw::Variant entry = Value(pair.entryType, pair.entry);
    const fw::Variant value = Value(pair.valueType, pair.value);
    EXPECT_EQ(IsValueOfEntry(entry.Get(), value.Get()), pair.same);
}

INSTANTIATE_TEST_SUITE_P(
    Table, EntryMatch,
    testing::Values(Pair{"FloatNear", VT_R4, L"0.25", VT_R8, L"0.2500001", true},
                    Pair{"DoubleNear", VT_R8, L"0.25", VT_R8, L"0.2500001", true},
                    Pair{"DoubleNearBelow", VT_R8, L"0.25", VT_R8, L"0.2499999", true},
                    Pair{"DoubleFar", VT_R8, L"0.25", VT_R8, L"0.250002", false},
                    Pair{"DoubleOfWholeNumber", VT_R8, L"2", VT_I4, L"2", true},
                    Pair{"DoubleOfText", VT_R8, L"2", VT_BSTR, L"2", false},
                    Pair{"WideOfLong", VT_I8, L"7", VT_I4, L"7", true},
                    Pair{"WideOfWide", VT_I8, L"7", VT_I8, L"7", false},
                    Pair{"WideWithHighHalf", VT_I8, L"4294967303", VT_I4, L"7", true},
                    Pair{"IntOfInt", VT_INT, L"7", VT_INT, L"7", true},
                    Pair{"IntOfLong", VT_INT, L"7", VT_I4, L"7", false},
                    Pair{"LongOfLong", VT_I4, L"7", VT_I4, L"7", true},
                    Pair{"LongOfOther", VT_I4, L"7", VT_I4, L"8", false},
                    Pair{"LongOfShort", VT_I4, L"7", VT_I2, L"7", false},
                    Pair{"ShortOfShort", VT_I2, L"-7", VT_I2, L"-7", true},
                    Pair{"SignedByte", VT_I1, L"-7", VT_I1, L"-7", true},
                    Pair{"SignedByteOther", VT_I1, L"-7", VT_I1, L"7", false},
                    Pair{"UnsignedShort", VT_UI2, L"65535", VT_UI2, L"65535", true},
                    Pair{"UnsignedShortOther", VT_UI2, L"65535", VT_UI2, L"1", false},
                    Pair{"UnsignedLong", VT_UI4, L"4294967295", VT_UI4, L"4294967295", true},
                    Pair{"UnsignedLongOther", VT_UI4, L"4294967295", VT_UI4, L"4294967294", false},
                    Pair{"UnsignedWide", VT_UI8, L"4294967303", VT_UI8, L"4294967303", true},
                    Pair{"UnsignedWideHighHalf", VT_UI8, L"4294967303", VT_UI8, L"7", false},
                    Pair{"Text", VT_BSTR, L"poor", VT_BSTR, L"poor", true},
                    Pair{"TextOther", VT_BSTR, L"poor", VT_BSTR, L"Poor", false},
                    Pair{"Truth", VT_BOOL, L"-1", VT_BOOL, L"-1", true},
                    Pair{"TruthOther", VT_BOOL, L"-1", VT_BOOL, L"0", false},
                    Pair{"TruthOfLong", VT_BOOL, L"-1", VT_I4, L"-1", false}),
    [](const testing::TestParamInfo<Pair>& param) { return std::string(param.param.name); });

// Exactly the tolerance is no longer near: the difference must be below it.
TEST(EntryMatch, ToleranceItself_IsOutside) {
    EXPECT_FALSE(IsValueOfEntry(fw::Variant::FromDouble(0).Get(), fw::Variant::FromDouble(1e-6).Get()));
    EXPECT_FALSE(IsValueOfEntry(fw::Variant::FromDouble(0).Get(), fw::Variant::FromDouble(-1e-6).Get()));
    EXPECT_TRUE(IsValueOfEntry(fw::Variant::FromDouble(0).Get(), fw::Variant::FromDouble(9.9e-7).Get()));
}

TEST(EntryMatch, Null_MatchesNullAlone) {
    EXPECT_TRUE(IsValueOfEntry(fw::Variant::Null().Get(), fw::Variant::Null().Get()));
    EXPECT_FALSE(IsValueOfEntry(fw::Variant::Null().Get(), fw::Variant::FromLong(0).Get()));
    EXPECT_FALSE(IsValueOfEntry(fw::Variant::FromLong(0).Get(), fw::Variant::Null().Get()));
}

TEST(EntryMatch, NumberThatIsNone_IsNotNear) {
    EXPECT_FALSE(IsValueOfEntry(fw::Variant::FromDouble(0).Get(), fw::Variant::FromUnknown(nullptr).Get()));
}

}  // namespace
