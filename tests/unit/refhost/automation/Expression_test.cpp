#include "refhost/automation/Expression.h"

#include <gtest/gtest.h>

#include "tests/support/ExpectCalls.h"

namespace {

using kvhost::ExpressionValue;

std::optional<ExpressionValue> NameValue(std::wstring_view name) {
    if (name == L"Radius") {
        return 2.5;
    }
    return name == L"Owner_1" ? std::optional<ExpressionValue>(L"city") : std::nullopt;
}

struct Case {
    const wchar_t* expression;
    const wchar_t* result;  // null: refused
};

class ExpressionTest : public ::testing::TestWithParam<Case> {};

TEST_P(ExpressionTest, Evaluate) {
    const auto value = kvhost::EvaluateExpression(GetParam().expression, NameValue);
    ASSERT_EQ(value.has_value(), GetParam().result != nullptr) << kvtest::ToUtf8(GetParam().expression);
    if (value) {
        EXPECT_EQ(kvhost::ExpressionText(*value), GetParam().result) << kvtest::ToUtf8(GetParam().expression);
    }
}

INSTANTIATE_TEST_SUITE_P(Evaluated, ExpressionTest,
                         ::testing::Values(Case{L"1", L"1"}, Case{L" 1 + 2 * 3 ", L"7"},
                                           Case{L"(1+2)*3", L"9"}, Case{L"7-2-1", L"4"}, Case{L"8/2/2", L"2"},
                                           Case{L"-2*-3", L"6"}, Case{L"+4", L"4"}, Case{L".5", L"0.5"},
                                           Case{L"1e3", L"1000"}, Case{L"Radius*2", L"5"},
                                           Case{L"\"a b\"", L"a b"}, Case{L"\"r\" & 1+1", L"r2"},
                                           Case{L"Owner_1&\"!\"", L"city!"}, Case{L"\"\"", L""}));

INSTANTIATE_TEST_SUITE_P(Refused, ExpressionTest,
                         ::testing::Values(Case{L"", nullptr}, Case{L"   ", nullptr}, Case{L"1+", nullptr},
                                           Case{L"1 2", nullptr}, Case{L"(1", nullptr}, Case{L"1)", nullptr},
                                           Case{L"1/0", nullptr}, Case{L"\"open", nullptr},
                                           Case{L"\"a\"+1", nullptr}, Case{L"-\"a\"", nullptr},
                                           Case{L"Unknown", nullptr}, Case{L"Radius &", nullptr},
                                           Case{L"1e400", nullptr}, Case{L"*2", nullptr},
                                           Case{L"#", nullptr}));

TEST(Expression, DeepNesting_RefusedAndNotOverflowing) {
    const std::wstring deep(100000, L'(');
    EXPECT_FALSE(kvhost::EvaluateExpression(deep, NameValue));
    EXPECT_FALSE(kvhost::EvaluateExpression(std::wstring(100000, L'-') + L"1", NameValue));
    const std::wstring fair = std::wstring(20, L'(') + L"1" + std::wstring(20, L')');
    EXPECT_TRUE(kvhost::EvaluateExpression(fair, NameValue));
}

TEST(Expression, WithoutNames_NamesAreRefused) {
    EXPECT_FALSE(kvhost::EvaluateExpression(L"Radius", {}));
}

}  // namespace
