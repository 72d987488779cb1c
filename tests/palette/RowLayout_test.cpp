#include "palette/rows/RowLayout.h"

#include <gtest/gtest.h>

namespace {

using kvpalette::RowLayout;

const int c_category = RowLayout::CategoryHeight();
const int c_row = RowLayout::RowHeight();

RowLayout LayoutOf(const std::vector<std::wstring>& categories, int width = 300, int height = 1000) {
    RowLayout layout;
    layout.SetRows(categories);
    layout.SetSize(width, height);
    return layout;
}

TEST(RowLayout, RowsOfACategory_LieBelowItsHeading) {
    const RowLayout layout = LayoutOf({L"General", L"Text", L"General"});
    ASSERT_EQ(layout.CategoryCount(), 2u);
    EXPECT_EQ(layout.RowBounds(0).top, c_category);
    EXPECT_EQ(layout.RowBounds(2).top, c_category + c_row);
    EXPECT_EQ(layout.RowBounds(1).top, 2 * c_category + 2 * c_row);
    EXPECT_EQ(layout.ContentHeight(), 2 * c_category + 3 * c_row);
}

TEST(RowLayout, CollapsedCategory_HidesItsRowsAndStaysSoByName) {
    RowLayout layout = LayoutOf({L"General", L"Text"});
    layout.SetCollapsed(0, true);
    const RECT hidden = layout.RowBounds(0);
    EXPECT_TRUE(::IsRectEmpty(&hidden));
    EXPECT_FALSE(layout.IsInSight(0));
    layout.SetRows({L"Text", L"General", L"General"});
    EXPECT_FALSE(layout.IsCollapsed(0));
    EXPECT_TRUE(layout.IsCollapsed(1));
    EXPECT_EQ(layout.ContentHeight(), 2 * c_category + c_row);
}

TEST(RowLayout, NextRow_PassesOverHeadingsAndCollapsedRows) {
    RowLayout layout = LayoutOf({L"A", L"B", L"C"});
    layout.SetCollapsed(1, true);
    EXPECT_EQ(layout.NextRow(0, true), 2u);
    EXPECT_EQ(layout.NextRow(2, false), 0u);
    EXPECT_EQ(layout.NextRow(2, true), RowLayout::c_none);
    EXPECT_EQ(layout.NextRow(0, false), RowLayout::c_none);
    EXPECT_EQ(layout.NextRow(RowLayout::c_none, true), 0u);
    EXPECT_EQ(layout.NextRow(RowLayout::c_none, false), 2u);
}

TEST(RowLayout, NoRows_HasNothingToGoTo) {
    const RowLayout layout = LayoutOf({});
    EXPECT_EQ(layout.NextRow(RowLayout::c_none, true), RowLayout::c_none);
    EXPECT_EQ(layout.NextRow(RowLayout::c_none, false), RowLayout::c_none);
    EXPECT_EQ(layout.HitTest({5, 5}).place, RowLayout::Place::Nothing);
}

TEST(RowLayout, Reveal_ScrollsAsLittleAsNeededAndOpensTheCategory) {
    RowLayout layout = LayoutOf(std::vector<std::wstring>(20, L"A"), 300, 100);
    layout.Reveal(0);
    EXPECT_EQ(layout.ScrollOffset(), 0);
    layout.Reveal(10);
    EXPECT_EQ(layout.RowBounds(10).bottom, 100);
    layout.Reveal(2);
    EXPECT_EQ(layout.RowBounds(2).top, 0);
    layout.SetCollapsed(0, true);
    layout.Reveal(5);
    EXPECT_TRUE(layout.IsInSight(5));
}

TEST(RowLayout, Scrolling_StaysWithinTheContents) {
    RowLayout layout = LayoutOf(std::vector<std::wstring>(20, L"A"), 300, 100);
    layout.ScrollTo(-50);
    EXPECT_EQ(layout.ScrollOffset(), 0);
    layout.ScrollTo(100000);
    EXPECT_EQ(layout.ScrollOffset(), layout.ContentHeight() - 100);
    layout.SetSize(300, 5000);
    EXPECT_EQ(layout.ScrollOffset(), 0);
}

TEST(RowLayout, HitTest_TellsNameSplitterAndValueApart) {
    RowLayout layout = LayoutOf({L"A"});
    layout.SetNameWidth(120);
    const LONG y = c_category + 5;
    EXPECT_EQ(layout.HitTest({10, 5}).place, RowLayout::Place::Category);
    EXPECT_EQ(layout.HitTest({10, y}).place, RowLayout::Place::Name);
    EXPECT_EQ(layout.HitTest({120, y}).place, RowLayout::Place::Splitter);
    EXPECT_EQ(layout.HitTest({200, y}).place, RowLayout::Place::Value);
    EXPECT_EQ(layout.HitTest({200, y}).index, 0u);
    EXPECT_EQ(layout.HitTest({200, c_category + c_row}).place, RowLayout::Place::Nothing);
}

TEST(RowLayout, Splitter_LeavesRoomForBothColumns) {
    RowLayout layout = LayoutOf({L"A"}, 300);
    layout.SetNameWidth(1);
    EXPECT_EQ(layout.NameWidth(), RowLayout::LeastColumn());
    layout.SetNameWidth(5000);
    EXPECT_EQ(layout.NameWidth(), 300 - RowLayout::LeastColumn());
    EXPECT_EQ(layout.ValueBounds(0).left, layout.NameBounds(0).right + 1);
}

}  // namespace
