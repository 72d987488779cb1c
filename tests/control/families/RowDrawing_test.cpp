#include "framework/base/DeviceContexts.h"
#include "framework/base/Handles.h"
#include "tests/control/support/RowContainer.h"
#include "tests/support/DrawnText.h"

namespace {

class RowDrawing : public kvtest::RowContainer {
protected:
    std::vector<kvtest::DrawnText> Draw(RECTL bounds) {
        return kvtest::RecordText([&](HDC dc) {
            EXPECT_EQ(As<IViewObject>()->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, dc, &bounds,
                                              &bounds, nullptr, 0),
                      S_OK);
        });
    }
};

TEST_F(RowDrawing, View_WithoutAWindow_DrawsGroundAndText) {
    Create(CLSID_KvPePropertyEditorText);
    ASSERT_EQ(InitEdit({&MakeObject(L"A", L"alpha")}), S_OK);
    GiveFont();
    EXPECT_EQ(control->put_ForeColor(RGB(1, 2, 3)), S_OK);
    EXPECT_EQ(control->put_BackColor(RGB(4, 5, 6)), S_OK);
    const auto drawn = Draw({0, 0, 120, 20});
    ASSERT_EQ(drawn.size(), 2u);
    EXPECT_EQ(drawn[0].backColor, RGB(4, 5, 6));
    EXPECT_EQ(CRect(drawn[0].bounds), CRect(0, 0, 120, 20));
    EXPECT_EQ(drawn[1].text, L"alpha");
    EXPECT_EQ(drawn[1].textColor, RGB(1, 2, 3));
    EXPECT_EQ(drawn[1].origin.x, 2);
}

TEST_F(RowDrawing, View_ReadOnly_UsesTheReadOnlyColours) {
    Create(CLSID_KvPePropertyEditorText);
    ASSERT_EQ(InitEdit({&MakeObject(L"A", L"alpha")}, true), S_OK);
    EXPECT_EQ(control->put_ReadOnlyForeColor(RGB(7, 8, 9)), S_OK);
    EXPECT_EQ(control->put_ReadOnlyBackColor(RGB(10, 11, 12)), S_OK);
    const auto drawn = Draw({0, 0, 120, 20});
    ASSERT_EQ(drawn.size(), 2u);
    EXPECT_EQ(drawn[0].backColor, RGB(10, 11, 12));
    EXPECT_EQ(drawn[1].textColor, RGB(7, 8, 9));
}

TEST_F(RowDrawing, View_OddHeight_TextStandsOnePixelLowerThanHalfTheRest) {
    Create(CLSID_KvPePropertyEditorText);
    ASSERT_EQ(InitEdit({&MakeObject(L"A", L"alpha")}), S_OK);
    const auto even = Draw({0, 0, 120, 40});
    const auto odd = Draw({0, 0, 120, 41});
    ASSERT_EQ(even.size(), 2u);
    ASSERT_EQ(odd.size(), 2u);
    EXPECT_GE(odd[1].origin.y, even[1].origin.y + 1);
}

TEST_F(RowDrawing, View_EmptyText_FillsTheRow) {
    Create(CLSID_KvPePropertyEditorText);
    ASSERT_EQ(InitEdit({&MakeObject(L"A", L"")}), S_OK);
    const auto drawn = Draw({0, 0, 120, 20});
    ASSERT_FALSE(drawn.empty());
    EXPECT_EQ(CRect(drawn[0].bounds), CRect(0, 0, 120, 20));
}

TEST_F(RowDrawing, Window_PaintAndPrint_ShowTheSamePixels) {
    CreateTextRow({L"alpha"});
    EXPECT_EQ(control->put_BackColor(RGB(250, 200, 150)), S_OK);
    ::RedrawWindow(Row(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
    const fw::WindowDc painted(Row());
    const fw::MemoryDc printed(painted);
    const fw::UniqueBitmap bitmap(::CreateCompatibleBitmap(painted, 120, 20));
    const fw::ScopedSelect selected(printed, bitmap.Get());
    ::SendMessageW(Row(), WM_PRINTCLIENT, reinterpret_cast<WPARAM>(printed.Get()), PRF_CLIENT);
    int textPixels = 0;
    for (int y = 0; y < 20; ++y) {
        for (int x = 0; x < 120; ++x) {
            const COLORREF pixel = ::GetPixel(painted, x, y);
            EXPECT_EQ(pixel, ::GetPixel(printed, x, y)) << x << ' ' << y;
            textPixels += pixel != RGB(250, 200, 150) ? 1 : 0;
        }
    }
    EXPECT_GT(textPixels, 30);
    EXPECT_EQ(::GetPixel(painted, 119, 0), RGB(250, 200, 150));
}

}  // namespace
