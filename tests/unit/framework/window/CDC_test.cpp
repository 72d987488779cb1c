#include "framework/window/CDC.h"

#include <gtest/gtest.h>

#include "framework/base/Handles.h"

namespace {

// A small picture to draw on.
class Drawing : public testing::Test {
protected:
    Drawing() {
        BITMAPINFO info{};
        info.bmiHeader = {sizeof(BITMAPINFOHEADER), 16, -16, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        m_bitmap.Reset(::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, nullptr, nullptr, 0));
        ::SelectObject(m_memory, m_bitmap.Get());
    }

    fw::UniqueBitmap m_bitmap;
    fw::MemoryDc m_memory{nullptr};
    CDC m_dc{m_memory};
};

TEST_F(Drawing, FillSolidRect_FillsExactlyAndKeepsTheColour) {
    m_dc.SetBkColor(RGB(9, 8, 7));
    m_dc.FillSolidRect({2, 2, 5, 5}, RGB(255, 0, 0));
    EXPECT_EQ(::GetPixel(m_dc, 2, 2), RGB(255, 0, 0));
    EXPECT_EQ(::GetPixel(m_dc, 4, 4), RGB(255, 0, 0));
    EXPECT_EQ(::GetPixel(m_dc, 5, 5), RGB(0, 0, 0));
    EXPECT_EQ(::GetPixel(m_dc, 1, 2), RGB(0, 0, 0));
    EXPECT_EQ(m_dc.GetBkColor(), RGB(9, 8, 7));
}

TEST_F(Drawing, DrawLine_LeavesThePositionAsItWas) {
    const fw::UniquePen pen(::CreatePen(PS_SOLID, 1, RGB(0, 0, 255)));
    const fw::ScopedSelect selected(m_dc, pen.Get());
    ::MoveToEx(m_dc, 7, 7, nullptr);
    m_dc.DrawLine(1, 1, 4, 1);
    EXPECT_EQ(::GetPixel(m_dc, 3, 1), RGB(0, 0, 255));
    EXPECT_EQ(::GetPixel(m_dc, 4, 1), RGB(0, 0, 0)) << "the end point lies outside";
    POINT position{};
    ::GetCurrentPositionEx(m_dc, &position);
    EXPECT_EQ(position.x, 7);
}

TEST_F(Drawing, Text_Measured_GrowsWithTheText) {
    const fw::UniqueFont font(::CreateFontW(-11, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, L"MS Shell Dlg"));
    const fw::ScopedSelect selected(m_dc, font.Get());
    const CSize one = m_dc.GetTextExtent(L"WO");
    const CSize two = m_dc.GetTextExtent(L"WOyg");
    EXPECT_GT(one.cx, 0);
    EXPECT_GT(two.cx, one.cx);
    EXPECT_EQ(two.cy, one.cy);
    RECT bounds{};
    m_dc.DrawText(L"WOyg", &bounds, DT_CALCRECT | DT_SINGLELINE);
    EXPECT_EQ(bounds.right, two.cx);
    EXPECT_TRUE(m_dc.ExtTextOut(0, 0, 0, nullptr, L"x"));
}

TEST_F(Drawing, BitBltAndClip_StayInside) {
    m_dc.FillSolidRect({0, 0, 4, 4}, RGB(0, 255, 0));
    EXPECT_TRUE(m_dc.BitBlt({8, 8, 10, 10}, m_dc, 0, 0));
    EXPECT_EQ(::GetPixel(m_dc, 9, 9), RGB(0, 255, 0));
    EXPECT_EQ(::GetPixel(m_dc, 10, 10), RGB(0, 0, 0));
    const fw::ScopedSaveDc saved(m_dc);
    m_dc.IntersectClipRect({0, 0, 6, 6});
    m_dc.FillSolidRect({0, 0, 16, 16}, RGB(1, 1, 1));
    EXPECT_EQ(::GetPixel(m_dc, 5, 5), RGB(1, 1, 1));
    EXPECT_NE(::GetPixel(m_dc, 9, 9), RGB(1, 1, 1)) << "outside the clip region";
}

TEST_F(Drawing, GetWindow_MemoryContext_HasNone) {
    EXPECT_EQ(m_dc.GetWindow(), nullptr);
}

}  // namespace
