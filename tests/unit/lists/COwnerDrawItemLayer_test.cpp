#include "lists/COwnerDrawItemLayer.h"

#include <gtest/gtest.h>

#include "framework/base/DeviceContexts.h"
#include "framework/window/Geometry.h"
#include "refhost/editor/EditorState.h"
#include "refhost/editor/HostSession.h"
#include "tests/support/DrawnText.h"

namespace {

constexpr COLORREF c_ground = RGB(250, 240, 230);
constexpr COLORREF c_text = RGB(10, 20, 30);
constexpr COLORREF c_override = RGB(1, 200, 3);
constexpr RECT c_bounds = {10, 20, 110, 36};

/// Looks at the pixels of an entry, and at what is left of the context.
class LayerEntry : public ::testing::Test {
protected:
    LayerEntry() {
        host->Editor().SetViewportOverrideColor(c_override);
        item.name = L"Wi";
    }

    void Draw(UINT action, UINT state = 0) {
        ::SetBkColor(m_dc, c_ground);
        ::SetTextColor(m_dc, c_text);
        item.Draw(m_dc, c_bounds, action, state, 0);
        EXPECT_EQ(::GetBkColor(m_dc), c_ground) << "the colours are put back";
        EXPECT_EQ(::GetTextColor(m_dc), c_text);
    }
    [[nodiscard]] COLORREF At(int x, int y) const { return ::GetPixel(m_dc, x, y); }
    [[nodiscard]] COLORREF RightEnd() const { return At(c_bounds.right - 1, c_bounds.top); }
    [[nodiscard]] COLORREF LeftEnd() const { return At(c_bounds.left, c_bounds.top); }
    [[nodiscard]] kvtest::DrawnText DrawnWith(UINT action, UINT state) {
        const std::vector<kvtest::DrawnText> drawn = kvtest::RecordText([&](HDC dc) {
            const fw::ScopedSelect font(dc, ::GetStockObject(DEFAULT_GUI_FONT));
            ::SetBkColor(dc, c_ground);
            ::SetTextColor(dc, c_text);
            item.Draw(dc, c_bounds, action, state, 0);
        });
        for (const kvtest::DrawnText& text : drawn) {
            if (!text.text.empty()) {
                return text;
            }
        }
        return {};
    }

    kvhost::HostSession host;
    COwnerDrawItemLayer item;

private:
    static HBITMAP MakePixels() {
        BITMAPINFO info{};
        info.bmiHeader = {sizeof(BITMAPINFOHEADER), 128, -64, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        void* bits = nullptr;
        return ::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    }

    fw::UniqueBitmap m_pixels{MakePixels()};
    fw::MemoryDc m_dc{nullptr};
    fw::ScopedSelect m_selected{m_dc, m_pixels.Get()};
};

TEST_F(LayerEntry, StartsPlain) {
    EXPECT_FALSE(item.disabled);
    EXPECT_FALSE(item.hasViewportOverride);
}

TEST_F(LayerEntry, NoneOfTheActions_DrawsNothing) {
    Draw(8);
    EXPECT_EQ(RightEnd(), 0U);
}

TEST_F(LayerEntry, Plain_FillsWithTheContextsGround) {
    Draw(ODA_DRAWENTIRE);
    EXPECT_EQ(LeftEnd(), c_ground);
    EXPECT_EQ(RightEnd(), c_ground);
    EXPECT_EQ(DrawnWith(ODA_DRAWENTIRE, 0).text, L"Wi");
    EXPECT_EQ(DrawnWith(ODA_DRAWENTIRE, 0).textColor, c_text);
    EXPECT_EQ(DrawnWith(ODA_DRAWENTIRE, 0).origin.x, c_bounds.left + 2);
}

TEST_F(LayerEntry, Selected_HasTheSystemsHighlight) {
    Draw(ODA_SELECT, ODS_SELECTED);
    EXPECT_EQ(RightEnd(), ::GetSysColor(COLOR_HIGHLIGHT));
    EXPECT_EQ(DrawnWith(ODA_SELECT, ODS_SELECTED).textColor, ::GetSysColor(COLOR_HIGHLIGHTTEXT));
    EXPECT_EQ(DrawnWith(ODA_SELECT, ODS_SELECTED).backColor, ::GetSysColor(COLOR_HIGHLIGHT));
}

TEST_F(LayerEntry, Override_MarksTheTextsGroundOnly) {
    item.hasViewportOverride = true;
    Draw(ODA_DRAWENTIRE);
    EXPECT_EQ(LeftEnd(), c_override);
    EXPECT_EQ(RightEnd(), c_ground);
    EXPECT_EQ(DrawnWith(ODA_DRAWENTIRE, 0).backColor, c_override);
}

TEST_F(LayerEntry, OverrideEndsTwoBehindTheText) {
    item.hasViewportOverride = true;
    Draw(ODA_DRAWENTIRE);
    int right = c_bounds.right - 1;
    while (At(right, c_bounds.top) != c_override) {
        --right;
    }
    const fw::MemoryDc measure(nullptr);
    SIZE extent{};
    ::GetTextExtentPoint32W(measure, L"Wi", 2, &extent);
    EXPECT_EQ(right + 1, c_bounds.left + 2 + extent.cx + 2);
}

TEST_F(LayerEntry, OverrideOfTheSelected_IsNotMarked) {
    item.hasViewportOverride = true;
    Draw(ODA_DRAWENTIRE, ODS_SELECTED);
    EXPECT_EQ(LeftEnd(), ::GetSysColor(COLOR_HIGHLIGHT));
}

TEST_F(LayerEntry, Disabled_IsFadedTowardWhite) {
    item.disabled = true;
    EXPECT_EQ(DrawnWith(ODA_DRAWENTIRE, 0).textColor, RGB(108, 114, 120))
        << "255 - 245 * 0.6, 255 - 235 * 0.6 and 255 - 225 * 0.6";
}

TEST_F(LayerEntry, DisabledAndSelected_FadesTheContextsTextColor) {
    item.disabled = true;
    EXPECT_EQ(DrawnWith(ODA_SELECT, ODS_SELECTED).textColor, RGB(108, 114, 120));
    Draw(ODA_SELECT, ODS_SELECTED);
    EXPECT_EQ(RightEnd(), ::GetSysColor(COLOR_HIGHLIGHT));
}

TEST_F(LayerEntry, FocusAlone_DrawsTheFrameAndNoText) {
    item.hasViewportOverride = true;
    Draw(ODA_FOCUS);
    EXPECT_EQ(At(c_bounds.left + 1, c_bounds.top + 1), 0U) << "no ground";
    EXPECT_EQ(DrawnWith(ODA_FOCUS, 0).text, L"");
}

TEST_F(LayerEntry, Ampersand_IsAMnemonic) {
    item.name = L"A&B";
    EXPECT_EQ(DrawnWith(ODA_DRAWENTIRE, 0).text, L"AB");
}

}  // namespace
