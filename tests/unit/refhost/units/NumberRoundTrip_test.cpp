#include <gtest/gtest.h>

#include <cmath>
#include <cwchar>
#include <random>
#include <string>

#include "host_sdk/KvDbUnits.h"
#include "refhost/editor/DocumentManager.h"
#include "refhost/editor/HostSession.h"
#include "refhost/editor/SystemVariables.h"
#include "tests/support/Rounds.h"
#include "tests/support/SeededNumber.h"

namespace {

constexpr int c_numbers = 1'000'000;
constexpr wchar_t c_guard = L'#';

struct NumberForm {
    const char* name;
    int (*toText)(double, int, int, wchar_t*);
    int (*toNumber)(const wchar_t*, int, double*);
    int firstMode;
};

constexpr NumberForm c_forms[] = {
    {"length", kvdbRToS, kvdbDisToF, 1},
    {"angle", kvdbAngToS, kvdbAngToF, 0},
    {"raw angle", kvdbRawAngToS, kvdbRawAngToF, 0},
};
constexpr int c_modesOfForm = 5;
constexpr int c_precisions = 9;
constexpr int c_ways = 3 * c_modesOfForm * c_precisions;

std::string Narrow(const std::wstring& text) {
    return {text.begin(), text.end()};
}

/// False when the text that the number has is not the text that it has after being read.
testing::AssertionResult ReadsBackTheSame(double number, int way) {
    const NumberForm& form = c_forms[way / (c_modesOfForm * c_precisions)];
    const int mode = form.firstMode + way / c_precisions % c_modesOfForm;
    const int precision = way % c_precisions;
    wchar_t text[KVDB_NUMBER_TEXT_SIZE + 1];
    wchar_t again[KVDB_NUMBER_TEXT_SIZE];
    text[KVDB_NUMBER_TEXT_SIZE] = c_guard;
    double value = 0;
    const auto failure = [&](const char* what) {
        return testing::AssertionFailure()
               << what << ": " << form.name << " mode " << mode << " precision " << precision << " number "
               << std::hexfloat << number << " text " << Narrow(text) << " then " << Narrow(again);
    };
    again[0] = L'\0';
    if (form.toText(number, mode, precision, text) != KVED_RTNORM) {
        const bool isTooGreat = form.firstMode == 0 && std::fabs(number) > 1e306;
        return std::isfinite(number) && !isTooGreat ? failure("no text") : testing::AssertionSuccess();
    }
    if (text[KVDB_NUMBER_TEXT_SIZE] != c_guard || std::wcslen(text) >= KVDB_NUMBER_TEXT_SIZE) {
        return failure("too long");
    }
    if (form.toNumber(text, mode, &value) != KVED_RTNORM) {
        return failure("not read");
    }
    if (form.toText(value, mode, precision, again) != KVED_RTNORM || std::wcscmp(text, again) != 0) {
        return failure("another text");
    }
    return testing::AssertionSuccess();
}

class NumberRoundTrips : public testing::TestWithParam<double> {};

TEST_P(NumberRoundTrips, TextsThatAreReadAgain_StayTheSame) {
    kvhost::HostSession session;
    session->Documents().New();
    ASSERT_EQ(session->Variables().Set(L"ANGBASE", GetParam()), kvhost::SystemVariables::Outcome::Done);
    ASSERT_EQ(session->Variables().Set(L"ANGDIR", GetParam() != 0 ? 1 : 0),
              kvhost::SystemVariables::Outcome::Done);
    std::mt19937_64 random(20240229);
    // In turn, so that all ways are gone with one for each number, too.
    const int waysOfANumber = kvtest::Rounds(1, c_ways);
    for (int index = 0; index < c_numbers / 2; ++index) {
        const double number = kvtest::SeededNumber(random);
        for (int way = index; way < index + waysOfANumber; ++way) {
            ASSERT_TRUE(ReadsBackTheSame(number, way % c_ways)) << "number " << index;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(BaseDirections, NumberRoundTrips, testing::Values(0.0, 1.2345));

TEST(NumberRoundTrips, NumbersNextToTurnsAndCarries_StayTheSame) {
    kvhost::HostSession session;
    session->Documents().New();
    const double turn = 6.283185307179586;
    for (const double center : {0.0, turn, turn / 2, turn / 4, -turn, 12.0, 999999.5 * turn / 360, 1e6, 1e15,
                                999999999999999.0, 1e16, 1.7976931348623157e308, 2.2250738585072014e-308}) {
        for (const double distance : {0.0, 1e-16, 1e-13, 1e-12, 1e-9, 1e-6, 1e-4, 0.4999, 0.5}) {
            for (const double number : {center - distance, center + distance, -center - distance}) {
                for (int way = 0; way < c_ways; ++way) {
                    EXPECT_TRUE(ReadsBackTheSame(number, way));
                }
            }
        }
    }
}

}  // namespace
