#include "framework/base/CString.h"

#include <gtest/gtest.h>

namespace {

TEST(CString, Construction_NullPointer_IsEmpty) {
    const CString text(static_cast<const wchar_t*>(nullptr));
    EXPECT_TRUE(text.IsEmpty());
    EXPECT_EQ(text.GetLength(), 0);
    EXPECT_STREQ(text.GetString(), L"");
}

TEST(CString, Assignment_FromEachKind_HoldsTheText) {
    CString text;
    text = L"plain";
    EXPECT_EQ(text, L"plain");
    text = std::wstring_view(L"viewed", 4);
    EXPECT_EQ(text, L"view");
    text = std::wstring(L"standard");
    EXPECT_EQ(text, L"standard");
    text = static_cast<const wchar_t*>(nullptr);
    EXPECT_TRUE(text.IsEmpty());
}

TEST(CString, Assignment_FromOwnPart_HoldsThePart) {
    CString text(L"abcdef");
    text = text.GetString() + 2;
    EXPECT_EQ(text, L"cdef");
}

TEST(CString, Compare_DifferInCaseOnly_AreDifferent) {
    EXPECT_NE(CString(L"Wall").Compare(L"wall"), 0);
    EXPECT_EQ(CString(L"Wall").CompareNoCase(L"wALL"), 0);
    EXPECT_NE(CString(L"Wall"), CString(L"wall"));
    EXPECT_LT(CString(L"a").Compare(L"b"), 0);
    EXPECT_GT(CString(L"b").Compare(L"a"), 0);
}

TEST(CString, CompareNoCase_BeyondAscii_FoldsByTheSystemTable) {
    EXPECT_EQ(CString(L"GR\u00D6SSE").CompareNoCase(L"gr\u00F6sse"), 0);
    EXPECT_NE(CString(L"a").CompareNoCase(L"ab"), 0);
    EXPECT_GT(CString(L"ab").CompareNoCase(L"A"), 0);
}

TEST(CString, CompareLocale_CaseDiffers_SortsTogetherWithItsLetter) {
    EXPECT_LT(CString(L"apple").CompareLocale(L"Banana"), 0);
    EXPECT_GT(CString(L"apple").Compare(L"Banana"), 0);
}

TEST(CString, Parts_RangesInsideAndOutside_AreCutToTheText) {
    const CString text(L"abcdef");
    EXPECT_EQ(text.Left(2), L"ab");
    EXPECT_EQ(text.Left(20), L"abcdef");
    EXPECT_EQ(text.Left(-1), L"");
    EXPECT_EQ(text.Right(2), L"ef");
    EXPECT_EQ(text.Right(20), L"abcdef");
    EXPECT_EQ(text.Mid(4), L"ef");
    EXPECT_EQ(text.Mid(1, 3), L"bcd");
    EXPECT_EQ(text.Mid(20, 3), L"");
    EXPECT_EQ(text.Mid(-3, 2), L"ab");
}

TEST(CString, Find_PresentAndAbsent_GivesPositionOrMinusOne) {
    const CString text(L"a.b.c");
    EXPECT_EQ(text.Find(L"."), 1);
    EXPECT_EQ(text.Find(L".", 2), 3);
    EXPECT_EQ(text.Find(L'.'), 1);
    EXPECT_EQ(text.ReverseFind(L'.'), 3);
    EXPECT_EQ(text.Find(L"x"), -1);
    EXPECT_EQ(text.Find(L"a", 99), -1);
}

TEST(CString, Trim_WhiteSpaceAround_KeepsTheInside) {
    EXPECT_EQ(CString(L" \t a b \r\n").Trim(), L"a b");
    EXPECT_EQ(CString(L" \t ").Trim(), L"");
    EXPECT_EQ(CString(L"\u3000x\u00A0").Trim(), L"x");
}

TEST(CString, CaseMapping_Umlaut_IsMapped) {
    EXPECT_EQ(CString(L"gr\u00F6\u00DFe").MakeUpper(), L"GR\u00D6\u00DFE");
    EXPECT_EQ(CString(L"GR\u00D6").MakeLower(), L"gr\u00F6");
    EXPECT_EQ(CString().MakeUpper(), L"");
}

TEST(CString, Replace_SeveralPlaces_CountsThem) {
    CString text(L"a-b-c");
    EXPECT_EQ(text.Replace(L"-", L"--"), 2);
    EXPECT_EQ(text, L"a--b--c");
    EXPECT_EQ(text.Replace(L"", L"x"), 0);
    EXPECT_EQ(text.Replace(L"x", L"y"), 0);
}

TEST(CString, Format_TextAndNumbers_TakesWideTextForS) {
    CString text;
    text.Format(L"%s=%d %.2f %c %u", L"r\u00E4dius", -7, 1.5, L'\u20AC', 3U);
    EXPECT_EQ(text, L"r\u00E4dius=-7 1.50 \u20AC 3");
}

TEST(CString, Format_LongResult_IsWhole) {
    const std::wstring longText(5000, L'x');
    CString text;
    text.Format(L"<%s>", longText.c_str());
    EXPECT_EQ(text.GetLength(), 5002);
    text.Format(L"%s", L"");
    EXPECT_TRUE(text.IsEmpty());
}

TEST(CString, Format_ArgumentIsTheStringItself_IsReadBeforeItIsReplaced) {
    CString text(L"inner");
    text.Format(L"[%s]", text.GetString());
    EXPECT_EQ(text, L"[inner]");
}

TEST(CString, AllocSysString_TextWithNull_KeepsItsLength) {
    const CString text(std::wstring_view(L"a\0b", 3));
    const BSTR copy = text.AllocSysString();
    EXPECT_EQ(::SysStringLen(copy), 3U);
    ::SysFreeString(copy);
}

TEST(CString, Concatenation_EachKind_Appends) {
    CString text = CString(L"a") + L"b" + CString(L"c") + L'd';
    text += L"e";
    text += CString(L"f");
    text += L'g';
    EXPECT_EQ((L"_" + text).View(), L"_abcdefg");
    EXPECT_TRUE(text < CString(L"b"));
}

}  // namespace
