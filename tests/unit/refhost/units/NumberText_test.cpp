#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "host_sdk/KvDbUnits.h"
#include "refhost/editor/DocumentManager.h"
#include "refhost/editor/HostSession.h"
#include "refhost/editor/SystemVariables.h"
#include "refhost/testing/Faults.h"
#include "refhost/testing/Journal.h"

namespace {

constexpr double c_turn = 6.283185307179586;
constexpr double c_degree = c_turn / 360;

using ToText = int (*)(double, int, int, wchar_t*);

std::wstring Text(ToText toText, double value, int mode, int precision) {
    wchar_t buffer[KVDB_NUMBER_TEXT_SIZE] = L"untouched";
    const int status = toText(value, mode, precision, buffer);
    EXPECT_EQ(status == KVED_RTNORM, buffer[0] != L'\0');
    return buffer;
}

struct LengthCase {
    double value;
    int mode;
    int precision;
    const wchar_t* text;
};

class LengthTexts : public testing::TestWithParam<LengthCase> {};

TEST_P(LengthTexts, AreThoseOfTheFormat) {
    EXPECT_EQ(Text(kvdbRToS, GetParam().value, GetParam().mode, GetParam().precision), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Scientific, LengthTexts,
    testing::Values(LengthCase{18.5, 1, 4, L"1.8500E+01"}, LengthCase{0, 1, 2, L"0.00E+00"},
                    LengthCase{-0.00025, 1, 1, L"-2.5E-04"}, LengthCase{9.99996, 1, 4, L"1.0000E+01"},
                    LengthCase{1e308, 1, 0, L"1E+308"}, LengthCase{5e-324, 1, 3, L"4.941E-324"}));
INSTANTIATE_TEST_SUITE_P(
    Decimal, LengthTexts,
    testing::Values(LengthCase{18.5, 2, 4, L"18.5000"}, LengthCase{18.5, 2, 0, L"18"},
                    LengthCase{-18.5, 2, 1, L"-18.5"}, LengthCase{-0.00001, 2, 4, L"0.0000"},
                    LengthCase{-0.0, 2, 2, L"0.00"}, LengthCase{1e14, 2, 1, L"100000000000000.0"},
                    LengthCase{1e15, 2, 1, L"1.0E+15"}, LengthCase{1e308, 2, 8, L"1.00000000E+308"},
                    LengthCase{5e-324, 2, 8, L"0.00000000"}, LengthCase{1.5, 2, 99, L"1.50000000"}));
INSTANTIATE_TEST_SUITE_P(Engineering, LengthTexts,
                         testing::Values(LengthCase{18.5, 3, 4, L"1'-6.5000\""},
                                         LengthCase{6.5, 3, 1, L"6.5\""}, LengthCase{12, 3, 2, L"1'"},
                                         LengthCase{0, 3, 2, L"0.00\""}, LengthCase{11.996, 3, 2, L"1'"},
                                         LengthCase{-18.5, 3, 1, L"-1'-6.5\""},
                                         LengthCase{-0.001, 3, 2, L"0.00\""},
                                         LengthCase{1e300, 3, 1, L"1.0E+300"}));
INSTANTIATE_TEST_SUITE_P(Architectural, LengthTexts,
                         testing::Values(LengthCase{18.5, 4, 4, L"1'-6 1/2\""},
                                         LengthCase{18.5, 4, 0, L"1'-7\""},
                                         LengthCase{0.0625, 4, 4, L"1/16\""}, LengthCase{11.999, 4, 4, L"1'"},
                                         LengthCase{12.25, 4, 2, L"1'-1/4\""}, LengthCase{6, 4, 8, L"6\""},
                                         LengthCase{-30.75, 4, 8, L"-2'-6 3/4\""},
                                         LengthCase{0, 4, 4, L"0\""}, LengthCase{1e15, 4, 0, L"1E+15"}));
INSTANTIATE_TEST_SUITE_P(Fractional, LengthTexts,
                         testing::Values(LengthCase{18.5, 5, 4, L"18 1/2"}, LengthCase{0.5, 5, 1, L"1/2"},
                                         LengthCase{18, 5, 4, L"18"}, LengthCase{-2.125, 5, 3, L"-2 1/8"},
                                         LengthCase{0.001, 5, 4, L"0"}, LengthCase{-0.001, 5, 4, L"0"}));

struct AngleCase {
    double degrees;
    int mode;
    int precision;
    const wchar_t* text;
};

class AngleTexts : public testing::TestWithParam<AngleCase> {};

TEST_P(AngleTexts, AreThoseOfTheFormat) {
    const AngleCase& angle = GetParam();
    EXPECT_EQ(Text(kvdbRawAngToS, angle.degrees * c_degree, angle.mode, angle.precision), angle.text);
}

INSTANTIATE_TEST_SUITE_P(DecimalDegrees, AngleTexts,
                         testing::Values(AngleCase{45, 0, 0, L"45"}, AngleCase{45.5, 0, 2, L"45.50"},
                                         AngleCase{-45, 0, 1, L"-45.0"}, AngleCase{360, 0, 0, L"360"},
                                         AngleCase{725.5, 0, 1, L"725.5"}, AngleCase{1e6, 0, 1, L"1.0E+06"}));
INSTANTIATE_TEST_SUITE_P(
    DegreesMinutesSeconds, AngleTexts,
    testing::Values(AngleCase{45.5, 1, 0, L"46d"}, AngleCase{45.5, 1, 1, L"45d30'"},
                    AngleCase{45.504, 1, 4, L"45d30'14\""}, AngleCase{45.504, 1, 5, L"45d30'14.4\""},
                    AngleCase{45.504, 1, 8, L"45d30'14.4000\""}, AngleCase{44.99999, 1, 4, L"45d0'0\""},
                    AngleCase{-0.5, 1, 2, L"-0d30'"}, AngleCase{2e6, 1, 1, L"2.0E+06d"}));
INSTANTIATE_TEST_SUITE_P(GradsAndRadians, AngleTexts,
                         testing::Values(AngleCase{45, 2, 0, L"50g"}, AngleCase{-9, 2, 2, L"-10.00g"},
                                         AngleCase{45, 3, 4, L"0.7854r"}, AngleCase{-45, 3, 1, L"-0.8r"}));
INSTANTIATE_TEST_SUITE_P(Surveyor, AngleTexts,
                         testing::Values(AngleCase{0, 4, 4, L"E"}, AngleCase{90, 4, 4, L"N"},
                                         AngleCase{180, 4, 4, L"W"}, AngleCase{270, 4, 4, L"S"},
                                         AngleCase{44.5, 4, 4, L"N 45d30'0\" E"},
                                         AngleCase{100, 4, 0, L"N 10d W"}, AngleCase{200, 4, 0, L"S 70d W"},
                                         AngleCase{300, 4, 1, L"S 30d0' E"}, AngleCase{-45, 4, 0, L"S 45d E"},
                                         AngleCase{359.9999999, 4, 0, L"E"},
                                         AngleCase{765, 4, 0, L"N 45d E"}));

TEST(NumberTexts, NoFiniteNumber_HasNone) {
    const double infinite = std::numeric_limits<double>::infinity();
    for (const double value : {infinite, -infinite, std::numeric_limits<double>::quiet_NaN()}) {
        for (int mode = 0; mode <= 5; ++mode) {
            EXPECT_EQ(Text(kvdbRToS, value, mode, 4), L"");
            EXPECT_EQ(Text(kvdbAngToS, value, mode, 4), L"");
            EXPECT_EQ(Text(kvdbRawAngToS, value, mode, 4), L"");
        }
    }
    // An angle that has no finite number of degrees.
    EXPECT_EQ(Text(kvdbRawAngToS, 1e308, 0, 4), L"");
    EXPECT_EQ(Text(kvdbRawAngToS, 1e308, 3, 4), L"1.0000E+308r");
}

TEST(NumberTexts, TheGreatestNumbers_AreNotRoundedUpBeyondAll) {
    const double greatest = std::numeric_limits<double>::max();
    EXPECT_EQ(Text(kvdbRToS, greatest, 1, 4), L"1.7976E+308");
    EXPECT_EQ(Text(kvdbRToS, greatest, 1, 0), L"1E+308");
    EXPECT_EQ(Text(kvdbRToS, -greatest, 2, 8), L"-1.79769313E+308");
}

TEST(NumberTexts, UnknownModesAndMissingPlaces_AreRefused) {
    wchar_t buffer[KVDB_NUMBER_TEXT_SIZE] = L"old";
    EXPECT_EQ(kvdbRToS(1, 0, 4, buffer), KVED_RTERROR);
    EXPECT_STREQ(buffer, L"");
    for (const int mode : {6, -2, 99}) {
        EXPECT_EQ(kvdbRToS(1, mode, 4, buffer), KVED_RTERROR);
    }
    for (const int mode : {5, -2, 99}) {
        EXPECT_EQ(kvdbAngToS(1, mode, 4, buffer), KVED_RTERROR);
        EXPECT_EQ(kvdbRawAngToS(1, mode, 4, buffer), KVED_RTERROR);
    }
    EXPECT_EQ(kvdbRToS(1, 2, 4, nullptr), KVED_RTERROR);
    double value = 7;
    EXPECT_EQ(kvdbDisToF(L"1", 6, &value), KVED_RTERROR);
    EXPECT_EQ(kvdbAngToF(L"1", 5, &value), KVED_RTERROR);
    EXPECT_EQ(kvdbRawAngToF(L"1", -2, &value), KVED_RTERROR);
    EXPECT_EQ(kvdbDisToF(nullptr, 2, &value), KVED_RTERROR);
    EXPECT_EQ(kvdbDisToF(L"1", 2, nullptr), KVED_RTERROR);
    EXPECT_EQ(value, 7);
}

class UnitsOfADrawing : public testing::Test {
protected:
    void Set(const wchar_t* name, const kvhost::VariableValue& value) {
        EXPECT_EQ(m_session->Variables().Set(name, value), kvhost::SystemVariables::Outcome::Done);
    }

    kvhost::HostSession m_session;
    kvhost::Document& m_document = m_session->Documents().New();
};

TEST_F(UnitsOfADrawing, CurrentSetting_IsThatOfTheWorkingDrawing) {
    EXPECT_EQ(Text(kvdbRToS, 18.5, -1, -1), L"18.5000");
    Set(L"LUNITS", 4);
    Set(L"LUPREC", 1);
    EXPECT_EQ(Text(kvdbRToS, 18.5, -1, -1), L"1'-6 1/2\"");
    EXPECT_EQ(Text(kvdbRToS, 18.5, 2, -1), L"18.5");
    EXPECT_EQ(Text(kvdbRToS, 18.5, -1, 0), L"1'-7\"");
    Set(L"AUNITS", 1);
    Set(L"AUPREC", 1);
    EXPECT_EQ(Text(kvdbAngToS, 45.5 * c_degree, -1, -1), L"45d30'");
    EXPECT_EQ(Text(kvdbRawAngToS, -45.5 * c_degree, -1, -1), L"-45d30'");
    double value = 0;
    EXPECT_EQ(kvdbDisToF(L"1'", -1, &value), KVED_RTNORM);
    EXPECT_EQ(value, 12);
    // Another drawing has settings of its own.
    m_session->SetWorkingDatabase(&m_session->Documents().New().GetDatabase());
    EXPECT_EQ(Text(kvdbRToS, 18.5, -1, -1), L"18.5000");
    EXPECT_EQ(kvdbDisToF(L"1'", -1, &value), KVED_RTERROR);
}

TEST_F(UnitsOfADrawing, Angles_AreSeenFromTheBaseDirection) {
    Set(L"ANGBASE", c_turn / 4);
    EXPECT_EQ(Text(kvdbAngToS, 100 * c_degree, 0, 0), L"10");
    EXPECT_EQ(Text(kvdbAngToS, 45 * c_degree, 0, 0), L"315");
    EXPECT_EQ(Text(kvdbRawAngToS, 100 * c_degree, 0, 0), L"100");
    Set(L"ANGDIR", 1);
    EXPECT_EQ(Text(kvdbAngToS, 45 * c_degree, 0, 0), L"45");
    double value = 0;
    EXPECT_EQ(kvdbAngToF(L"45", 0, &value), KVED_RTNORM);
    EXPECT_NEAR(value, 45 * c_degree, 1e-12);
    EXPECT_EQ(kvdbAngToF(L"-10", 0, &value), KVED_RTNORM);
    EXPECT_NEAR(value, 100 * c_degree, 1e-12);
    EXPECT_EQ(kvdbRawAngToF(L"-10", 0, &value), KVED_RTNORM);
    EXPECT_NEAR(value, -10 * c_degree, 1e-12);
}

TEST_F(UnitsOfADrawing, FullTurn_IsTheBaseDirection) {
    EXPECT_EQ(Text(kvdbAngToS, c_turn, 0, 4), L"0.0000");
    EXPECT_EQ(Text(kvdbAngToS, -c_turn / 4, 0, 0), L"270");
    EXPECT_EQ(Text(kvdbAngToS, 359.99999 * c_degree, 0, 2), L"0.00");
    EXPECT_EQ(Text(kvdbAngToS, 359.99 * c_degree, 0, 2), L"359.99");
    EXPECT_EQ(Text(kvdbAngToS, 6.28317, 3, 4), L"0.0000r");
    EXPECT_EQ(Text(kvdbAngToS, 6.28317, 3, 2), L"6.28r");
    double value = 1;
    EXPECT_EQ(kvdbAngToF(L"360", 0, &value), KVED_RTNORM);
    EXPECT_EQ(value, 0);
    EXPECT_EQ(kvdbRawAngToF(L"360", 0, &value), KVED_RTNORM);
    EXPECT_EQ(value, c_turn);
}

TEST_F(UnitsOfADrawing, WithoutDrawing_ThoseOfANewOneHold) {
    Set(L"LUNITS", 4);
    m_session->Documents().Close(&m_document);
    EXPECT_EQ(Text(kvdbRToS, 18.5, -1, -1), L"18.5000");
    EXPECT_EQ(Text(kvdbAngToS, 45 * c_degree, -1, -1), L"45");
}

TEST(NumberServices, AreJournaledAndCanFail) {
    kvhost::Journal journal;
    wchar_t buffer[KVDB_NUMBER_TEXT_SIZE] = L"old";
    double value = 3;
    for (const wchar_t* const name :
         {L"kvdbRToS", L"kvdbAngToS", L"kvdbRawAngToS", L"kvdbDisToF", L"kvdbAngToF", L"kvdbRawAngToF"}) {
        kvhost::Faults::FailService(name, 1);
    }
    EXPECT_EQ(kvdbRToS(1.5, 2, 1, buffer), KVED_RTERROR);
    EXPECT_STREQ(buffer, L"");
    EXPECT_EQ(kvdbAngToS(1.5, 0, 1, buffer), KVED_RTERROR);
    EXPECT_EQ(kvdbRawAngToS(1.5, 0, 1, buffer), KVED_RTERROR);
    EXPECT_EQ(kvdbDisToF(L"1 1/2", 2, &value), KVED_RTERROR);
    EXPECT_EQ(kvdbAngToF(L"1", 0, &value), KVED_RTERROR);
    EXPECT_EQ(kvdbRawAngToF(L"1", -1, &value), KVED_RTERROR);
    EXPECT_EQ(value, 3);
    kvhost::Faults::Reset();
    ASSERT_EQ(journal.Entries().size(), 6U);
    EXPECT_EQ(journal.Entries()[0].Line(), L"kvdbRToS 1.5 2 1");
    EXPECT_EQ(journal.Entries()[0].result, L"-5001");
    EXPECT_EQ(journal.Entries()[3].Line(), L"kvdbDisToF 1 1/2 2");
    EXPECT_EQ(journal.Entries()[5].Line(), L"kvdbRawAngToF 1 -1");
    EXPECT_EQ(kvdbRToS(1.5, 2, 1, buffer), KVED_RTNORM);
    EXPECT_EQ(journal.Entries().back().result, L"5100");
}

}  // namespace
