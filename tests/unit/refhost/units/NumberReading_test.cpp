#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "host_sdk/KvDbUnits.h"

namespace {

constexpr double c_degree = 6.283185307179586 / 360;

struct TypedLength {
    const wchar_t* text;
    int mode;
    double value;
};

class TypedLengths : public testing::TestWithParam<TypedLength> {};

TEST_P(TypedLengths, AreUnderstood) {
    double value = -99;
    EXPECT_EQ(kvdbDisToF(GetParam().text, GetParam().mode, &value), KVED_RTNORM);
    EXPECT_EQ(value, GetParam().value);
    EXPECT_FALSE(std::signbit(value) && value == 0);
}

INSTANTIATE_TEST_SUITE_P(Plain, TypedLengths,
                         testing::Values(TypedLength{L"12", 2, 12}, TypedLength{L" 12.5 ", 2, 12.5},
                                         TypedLength{L"+1.5", 2, 1.5}, TypedLength{L"- 1.5", 2, -1.5},
                                         TypedLength{L".5", 2, 0.5}, TypedLength{L"5.", 2, 5},
                                         TypedLength{L"1.5e3", 2, 1500}, TypedLength{L"1.5E+03", 1, 1500},
                                         TypedLength{L"1e-400", 2, 0}, TypedLength{L"-0", 2, 0},
                                         TypedLength{L"0000000000000000000000000000001", 2, 1},
                                         TypedLength{L"4.9E-324", 1, 4.9406564584124654e-324}));
INSTANTIATE_TEST_SUITE_P(Fractions, TypedLengths,
                         testing::Values(TypedLength{L"1/2", 5, 0.5}, TypedLength{L"18 1/2", 5, 18.5},
                                         TypedLength{L"18-1/2", 5, 18.5}, TypedLength{L"-18 1/2", 5, -18.5},
                                         TypedLength{L"1/3", 5, 1.0 / 3}, TypedLength{L"1 1/2", 2, 1.5},
                                         TypedLength{L"3/2", 1, 1.5}));
INSTANTIATE_TEST_SUITE_P(FeetAndInches, TypedLengths,
                         testing::Values(TypedLength{L"1'-6 1/2\"", 4, 18.5},
                                         TypedLength{L"1'6-1/2\"", 4, 18.5}, TypedLength{L"1'6-1/2", 4, 18.5},
                                         TypedLength{L"1' 6.5\"", 3, 18.5}, TypedLength{L"1'", 4, 12},
                                         TypedLength{L"1.5'", 4, 18}, TypedLength{L"1/2'", 4, 6},
                                         TypedLength{L"6\"", 4, 6}, TypedLength{L"6", 4, 6},
                                         TypedLength{L"1'-1/2\"", 4, 12.5}, TypedLength{L"-1'-6\"", 3, -18},
                                         TypedLength{L"1'-18\"", 3, 30}, TypedLength{L"0'-0\"", 4, 0},
                                         TypedLength{L"1'-1e1\"", 3, 22}, TypedLength{L"1'0.1", 3, 12.1},
                                         TypedLength{L"  2'  -  3\"  ", 3, 27}));

class MalformedLengths : public testing::TestWithParam<const wchar_t*> {};

TEST_P(MalformedLengths, AreRefusedInEveryFormat) {
    for (int mode = 1; mode <= 5; ++mode) {
        double value = -99;
        EXPECT_EQ(kvdbDisToF(GetParam(), mode, &value), KVED_RTERROR);
        EXPECT_EQ(value, -99);
    }
}

INSTANTIATE_TEST_SUITE_P(Table, MalformedLengths,
                         testing::Values(L"", L" ", L"-", L"+", L".", L"abc", L"1x", L"1,5", L"1 2", L"1e",
                                         L"1e+", L"e5", L"1/0", L"1/", L"/2", L"1.5 1/2", L"1-2", L"--1",
                                         L"'", L"\"", L"1'-", L"1'x", L"1''", L"1'2'", L"1\"2'", L"1'1 1/0\"",
                                         L"1e999", L"inf", L"nan", L"0x10", L"1'-1e999\"", L"\u0661",
                                         L"1\u00A02", L"1d"));

TEST(LengthsWithMarks, WithoutFeetInTheFormat_AreRefused) {
    double value = 0;
    for (const int mode : {1, 2, 5}) {
        EXPECT_EQ(kvdbDisToF(L"1'", mode, &value), KVED_RTERROR);
        EXPECT_EQ(kvdbDisToF(L"6\"", mode, &value), KVED_RTERROR);
    }
}

struct TypedAngle {
    const wchar_t* text;
    int mode;
    double degrees;
};

class TypedAngles : public testing::TestWithParam<TypedAngle> {};

TEST_P(TypedAngles, AreUnderstood) {
    double value = -99;
    EXPECT_EQ(kvdbRawAngToF(GetParam().text, GetParam().mode, &value), KVED_RTNORM);
    EXPECT_NEAR(value, GetParam().degrees * c_degree, 1e-12);
}

constexpr double c_radian = 1 / c_degree;

INSTANTIATE_TEST_SUITE_P(Table, TypedAngles,
                         testing::Values(TypedAngle{L"45", 0, 45}, TypedAngle{L"45", 1, 45},
                                         TypedAngle{L"50", 2, 45}, TypedAngle{L"0.5", 3, 0.5 * c_radian},
                                         TypedAngle{L"45", 4, 45}, TypedAngle{L"50g", 0, 45},
                                         TypedAngle{L"0.5r", 0, 0.5 * c_radian},
                                         TypedAngle{L"0.5R", 0, 0.5 * c_radian}, TypedAngle{L"45d", 2, 45},
                                         TypedAngle{L"45\u00B0", 3, 45}, TypedAngle{L"45d30'", 0, 45.5},
                                         TypedAngle{L"45d30'15\"", 0, 45.5 + 15.0 / 3600},
                                         TypedAngle{L"45d 30' 36\"", 1, 45.51}, TypedAngle{L"45d30", 1, 45.5},
                                         TypedAngle{L"45d36\"", 1, 45.01}, TypedAngle{L"30'", 1, 0.5},
                                         TypedAngle{L"36\"", 1, 0.01}, TypedAngle{L"-45d30'", 0, -45.5},
                                         TypedAngle{L" + 725.5 ", 0, 725.5}, TypedAngle{L"1e2", 0, 100},
                                         TypedAngle{L"1.5E+06d", 1, 1.5e6}));
INSTANTIATE_TEST_SUITE_P(Bearings, TypedAngles,
                         testing::Values(TypedAngle{L"N", 4, 90}, TypedAngle{L"s", 4, 270},
                                         TypedAngle{L"E", 4, 0}, TypedAngle{L" w ", 0, 180},
                                         TypedAngle{L"N45dE", 4, 45}, TypedAngle{L"n45e", 0, 45},
                                         TypedAngle{L"N 45d30' W", 4, 135.5}, TypedAngle{L"S30E", 4, 300},
                                         TypedAngle{L"S 30d W", 4, 240}, TypedAngle{L"N90dE", 4, 0},
                                         TypedAngle{L"N50gE", 4, 45}, TypedAngle{L"S90dE", 4, 0}));

class MalformedAngles : public testing::TestWithParam<const wchar_t*> {};

TEST_P(MalformedAngles, AreRefusedInEveryFormat) {
    for (int mode = 0; mode <= 4; ++mode) {
        double value = -99;
        EXPECT_EQ(kvdbRawAngToF(GetParam(), mode, &value), KVED_RTERROR);
        EXPECT_EQ(kvdbAngToF(GetParam(), mode, &value), KVED_RTERROR);
        EXPECT_EQ(value, -99);
    }
}

INSTANTIATE_TEST_SUITE_P(Table, MalformedAngles,
                         testing::Values(L"", L" ", L"-", L"d", L"45x", L"45dd", L"45d60'", L"45d30'60\"",
                                         L"45'30d", L"45d30'15\"1", L"45d30'10'", L"N45", L"N91E", L"N45N",
                                         L"NE", L"45E", L"N-45E", L"-N", L"1e999", L"50g30'", L"45 30",
                                         L"1/2", L"inf", L"nan", L"N 45d E S"));

}  // namespace
