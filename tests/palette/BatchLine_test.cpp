#include "palette/commands/BatchLine.h"

#include <gtest/gtest.h>

namespace {

using Words = std::vector<std::wstring>;

struct Line {
    std::wstring text;
    Words words;
};

class BatchLine : public testing::TestWithParam<Line> {};

TEST_P(BatchLine, IsCutIntoWords) {
    Words words;
    EXPECT_TRUE(kvpalette::SplitBatchLine(GetParam().text, words));
    EXPECT_EQ(words, GetParam().words);
}

INSTANTIATE_TEST_SUITE_P(Forms, BatchLine,
                         testing::Values(Line{L"", {}}, Line{L"   \t\r", {}}, Line{L"# a remark \"", {}},
                                         Line{L"--rows # to the end", {L"--rows"}}, Line{L"a#b", {L"a#b"}},
                                         Line{L"--set \"A=b c\"", {L"--set", L"A=b c"}},
                                         Line{L"A=\"b c\"d", {L"A=b cd"}}, Line{L"\"\" x", {L"", L"x"}},
                                         Line{L"\"say \\\"yes\\\"\"", {L"say \"yes\""}},
                                         Line{L"out\\new.png", {L"out\\new.png"}},
                                         Line{L"\"C:\\dir\\\\\" x", {L"C:\\dir\\", L"x"}},
                                         Line{L"\xFEFF--rows", {L"--rows"}}));

TEST(BatchLineQuotes, OpenQuote_IsRefused) {
    Words words;
    EXPECT_FALSE(kvpalette::SplitBatchLine(L"--set \"A=b", words));
}

}  // namespace
