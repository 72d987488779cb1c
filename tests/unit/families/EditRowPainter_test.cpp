#include "families/EditRowPainter.h"

#include <gtest/gtest.h>

#include "framework/base/DeviceContexts.h"
#include "framework/base/Handles.h"
#include "tests/support/DrawnText.h"

namespace {

fw::UniqueFont MakeFont() {
    LOGFONTW font{};
    font.lfHeight = -11;
    wcscpy(font.lfFaceName, L"Tahoma");
    return fw::UniqueFont(::CreateFontIndirectW(&font));
}

int HeightOf(HFONT font) {
    const fw::WindowDc dc(nullptr);
    const fw::ScopedSelect selected(dc, font);
    TEXTMETRICW metrics{};
    ::GetTextMetricsW(dc, &metrics);
    return metrics.tmHeight;
}

TEST(EditRowPainter, TextRect_EvenHeight_TextStandsHalfTheRestBelowTheTop) {
    EXPECT_EQ(EditRowPainter::TextRect({0, 0, 100, 20}, 13), CRect(2, 3, 100, 20));
}

TEST(EditRowPainter, TextRect_OddHeight_TextStandsOneLower) {
    EXPECT_EQ(EditRowPainter::TextRect({0, 0, 100, 21}, 13), CRect(2, 5, 100, 21));
}

TEST(EditRowPainter, TextRect_LineHigherThanRow_TextStartsAtTheTop) {
    EXPECT_EQ(EditRowPainter::TextRect({0, 0, 100, 8}, 13), CRect(2, 0, 100, 8));
}

TEST(EditRowPainter, TextRect_RowElsewhere_TextMovesWithIt) {
    EXPECT_EQ(EditRowPainter::TextRect({50, 40, 150, 60}, 13), CRect(52, 43, 150, 60));
}

TEST(EditRowPainter, EditTextRect_EvenHeight_StartsOneLower) {
    EXPECT_EQ(EditRowPainter::EditTextRect(CSize(100, 20), 13), CRect(2, 4, 100, 20));
}

TEST(EditRowPainter, EditTextRect_OddHeight_StartsHalfTheRestBelowTheTop) {
    EXPECT_EQ(EditRowPainter::EditTextRect(CSize(100, 21), 13), CRect(2, 4, 100, 21));
}

TEST(EditRowPainter, EditTextRect_LineHigherThanWindow_StaysInsideTheWindow) {
    EXPECT_EQ(EditRowPainter::EditTextRect(CSize(1, 6), 13), CRect(1, 0, 1, 6));
}

TEST(EditRowPainter, LineHeight_IsWhatEveryTextMeasures) {
    const fw::UniqueFont font = MakeFont();
    const fw::WindowDc dc(nullptr);
    const fw::ScopedSelect selected(dc, font.Get());
    for (const std::wstring_view text : {L"WOyg", L"x", L"_", L"\u0416\u4E00"}) {
        SIZE extent{};
        ASSERT_TRUE(::GetTextExtentPoint32W(dc, text.data(), static_cast<int>(text.size()), &extent));
        EXPECT_EQ(EditRowPainter::LineHeight(dc), extent.cy);
    }
}

TEST(EditRowPainter, Draw_Fill_FillsTheWholeRowThenDrawsTheText) {
    const fw::UniqueFont font = MakeFont();
    const auto drawn = kvtest::RecordText([&](HDC dc) {
        ::SetBkColor(dc, RGB(1, 2, 3));
        ::SetBkMode(dc, TRANSPARENT);
        EditRowPainter::Draw(dc, {0, 0, 100, 21}, L"alpha", font.Get(), EditRowPainter::Ground::Fill);
    });
    ASSERT_EQ(drawn.size(), 2u);
    EXPECT_EQ(drawn[0].text, L"");
    EXPECT_EQ(drawn[0].options & ETO_OPAQUE, static_cast<UINT>(ETO_OPAQUE));
    EXPECT_EQ(CRect(drawn[0].bounds), CRect(0, 0, 100, 21));
    EXPECT_EQ(drawn[0].backColor, RGB(1, 2, 3));
    EXPECT_EQ(drawn[1].text, L"alpha");
    EXPECT_EQ(drawn[1].origin.x, 2);
    const int top = 1 + (21 - HeightOf(font.Get())) / 2;
    // The rest is centred below that; who rounds how is the system's.
    const int rest = (21 - top - HeightOf(font.Get())) / 2;
    EXPECT_NEAR(drawn[1].origin.y, top + rest, 1);
}

TEST(EditRowPainter, Draw_Keep_LeavesTheGround) {
    const fw::UniqueFont font = MakeFont();
    const auto drawn = kvtest::RecordText([&](HDC dc) {
        EditRowPainter::Draw(dc, {0, 0, 100, 20}, L"alpha", font.Get(), EditRowPainter::Ground::Keep);
    });
    ASSERT_EQ(drawn.size(), 1u);
    EXPECT_EQ(drawn[0].text, L"alpha");
}

TEST(EditRowPainter, Draw_TextTooWide_EndsInAnEllipsis) {
    const fw::UniqueFont font = MakeFont();
    const auto drawn = kvtest::RecordText([&](HDC dc) {
        EditRowPainter::Draw(dc, {0, 0, 60, 20}, L"a text that is wider than its row", font.Get(),
                             EditRowPainter::Ground::Keep);
    });
    ASSERT_EQ(drawn.size(), 1u);
    EXPECT_TRUE(drawn[0].text.ends_with(L"...")) << drawn[0].text.size();
    EXPECT_TRUE(drawn[0].text.starts_with(L"a te"));
}

TEST(EditRowPainter, Draw_Ampersand_IsNoPrefix) {
    const fw::UniqueFont font = MakeFont();
    const auto drawn = kvtest::RecordText([&](HDC dc) {
        EditRowPainter::Draw(dc, {0, 0, 100, 20}, L"a&b", font.Get(), EditRowPainter::Ground::Keep);
    });
    ASSERT_EQ(drawn.size(), 1u);
    EXPECT_EQ(drawn[0].text, L"a&b");
}

TEST(EditRowPainter, Draw_PutsTheFontBack) {
    const fw::UniqueFont font = MakeFont();
    const fw::WindowDc screen(nullptr);
    const fw::MemoryDc dc(screen);
    const HGDIOBJ before = ::GetCurrentObject(dc, OBJ_FONT);
    EditRowPainter::Draw(dc, {0, 0, 100, 20}, L"alpha", font.Get(), EditRowPainter::Ground::Fill);
    EXPECT_EQ(::GetCurrentObject(dc, OBJ_FONT), before);
}

TEST(EditRowPainter, TextFormat_IsThatOfEveryRowOfThePalette) {
    EXPECT_EQ(EditRowPainter::TextFormat, 0x8924u);
}

}  // namespace
