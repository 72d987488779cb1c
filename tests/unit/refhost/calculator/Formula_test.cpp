#include "refhost/calculator/Formula.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using kvhost::AngularFormat;
using kvhost::Formula;

struct FormulaCase {
    const wchar_t* text;
    double number;
    int lengthPower = 0;
    int anglePower = 0;
    AngularFormat format = AngularFormat::Degrees;
};

class Formulas : public testing::TestWithParam<FormulaCase> {};

TEST_P(Formulas, AreWorkedOut) {
    const auto result = Formula::Evaluate(GetParam().text, GetParam().format);
    ASSERT_TRUE(result);
    EXPECT_FALSE(result->isPoint);
    EXPECT_NEAR(result->value.number, GetParam().number, 1e-12);
    EXPECT_EQ(result->value.lengthPower, GetParam().lengthPower);
    EXPECT_EQ(result->value.anglePower, GetParam().anglePower);
}

INSTANTIATE_TEST_SUITE_P(Operators, Formulas,
                         testing::Values(FormulaCase{L"1", 1}, FormulaCase{L" 1 + 2 * 3 ", 7},
                                         FormulaCase{L"(1+2)*3", 9}, FormulaCase{L"8/4/2", 1},
                                         FormulaCase{L"7-2-1", 4}, FormulaCase{L"2^3^2", 512},
                                         FormulaCase{L"-2^2", -4}, FormulaCase{L"2^-1", 0.5},
                                         FormulaCase{L"2--3", 5}, FormulaCase{L"+4", 4},
                                         FormulaCase{L"1.5e3", 1500}, FormulaCase{L"1/2", 0.5},
                                         FormulaCase{L"2*pi", 6.283185307179586}));
INSTANTIATE_TEST_SUITE_P(Functions, Formulas,
                         testing::Values(FormulaCase{L"sqrt(16)", 4}, FormulaCase{L"SQR(3)", 9},
                                         FormulaCase{L"abs(-2)", 2}, FormulaCase{L"round(2.6)", 3},
                                         FormulaCase{L"trunc(-2.6)", -2}, FormulaCase{L"exp(0)", 1},
                                         FormulaCase{L"ln(exp(2))", 2}, FormulaCase{L"log(1000)", 3},
                                         FormulaCase{L"sin(30)", 0.5}, FormulaCase{L"cos(60d)", 0.5},
                                         FormulaCase{L"tan(50g)", 1}, FormulaCase{L"asin(0.5)", 30, 0, 1},
                                         FormulaCase{L"acos(0.5)", 60, 0, 1},
                                         FormulaCase{L"atan(1)", 45, 0, 1},
                                         FormulaCase{L"sqrt(3ft*12in)", 12 * 1.7320508075688772, 1},
                                         FormulaCase{L"sin(100)", 1, 0, 0, AngularFormat::Grads}));
INSTANTIATE_TEST_SUITE_P(Lengths, Formulas,
                         testing::Values(FormulaCase{L"1'", 12, 1}, FormulaCase{L"1'-6\"", 18, 1},
                                         FormulaCase{L"1' - 6", 6, 1}, FormulaCase{L"1'-6 1/2\"", 18.5, 1},
                                         FormulaCase{L"1'6-1/2\"", 18.5, 1}, FormulaCase{L"0' 5\"", 5, 1},
                                         FormulaCase{L"-0' 5\"", -5, 1}, FormulaCase{L"0' 1/2\"", 0.5, 1},
                                         FormulaCase{L"1.5'", 18, 1}, FormulaCase{L"2ft", 24, 1},
                                         FormulaCase{L"1yd", 36, 1}, FormulaCase{L"3in", 3, 1},
                                         FormulaCase{L"25.4mm", 1, 1}, FormulaCase{L"2.54cm", 1, 1},
                                         FormulaCase{L"0.0254m", 1, 1}, FormulaCase{L"1'+6", 18, 1},
                                         FormulaCase{L"2'*3'", 864, 2}, FormulaCase{L"2'/1'", 2},
                                         FormulaCase{L"(1')^2", 144, 2}, FormulaCase{L"(1'-6\")*2", 36, 1}));
INSTANTIATE_TEST_SUITE_P(Angles, Formulas,
                         testing::Values(FormulaCase{L"45d30'", 45.5, 0, 1},
                                         FormulaCase{L"45d30'36\"", 45.51, 0, 1},
                                         FormulaCase{L"45d", 45, 0, 1}, FormulaCase{L"50g", 45, 0, 1},
                                         FormulaCase{L"0r", 0, 0, 1}, FormulaCase{L"45d+5", 50, 0, 1},
                                         FormulaCase{L"45d", 50, 0, 1, AngularFormat::Grads},
                                         FormulaCase{L"0.5r", 0.5, 0, 1, AngularFormat::Radians}));

class MalformedFormulas : public testing::TestWithParam<const wchar_t*> {};

TEST_P(MalformedFormulas, ComeToNothing) {
    EXPECT_FALSE(Formula::Evaluate(GetParam(), AngularFormat::Degrees));
}

// Inches alone are not read: who hands a text over puts feet before them.
INSTANTIATE_TEST_SUITE_P(Table, MalformedFormulas,
                         testing::Values(L"", L" ", L"+", L"1+", L"(1", L"1)", L"()", L"1 2", L"5\"", L"-5\"",
                                         L"18 1/2", L"nosuch(1)", L"sqrt", L"sqrt(", L"sqrt(-1)", L"1/0",
                                         L"ln(0)", L"1'+45d", L"2^1'", L"(1')^0.5", L"sqrt(1')", L"sin(1')",
                                         L"asin(1')", L"asin(2)", L"[1]", L"[1,2", L"[1,2,3,4]", L"[1,2]3",
                                         L"[45d,1]", L"1e999", L"99^999", L"2 3", L"*", L"1**2"));

TEST(PointFormulas, HaveTwoOrThreeCoordinates) {
    const auto flat = Formula::Evaluate(L"[1+1, 2']", AngularFormat::Degrees);
    ASSERT_TRUE(flat && flat->isPoint);
    EXPECT_EQ(flat->point[0], 2);
    EXPECT_EQ(flat->point[1], 24);
    EXPECT_EQ(flat->point[2], 0);
    const auto solid = Formula::Evaluate(L" [ 1 , -2 , sqrt(9) ] ", AngularFormat::Degrees);
    ASSERT_TRUE(solid && solid->isPoint);
    EXPECT_EQ(solid->point[1], -2);
    EXPECT_EQ(solid->point[2], 3);
}

TEST(DeepFormulas, AreRefusedInsteadOfExhaustingTheStack) {
    for (const wchar_t* const part : {L"(", L"-", L"2^", L"sqrt("}) {
        std::wstring deep;
        for (int depth = 0; depth < 100000; ++depth) {
            deep += part;
        }
        EXPECT_FALSE(Formula::Evaluate(deep + L"1", AngularFormat::Degrees));
    }
}

}  // namespace
