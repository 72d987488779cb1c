#include "host_sdk/CLzUiOwnerDrawButton.h"

#include <gtest/gtest.h>

#include "framework/window/CDC.h"
#include "refhost/testing/Faults.h"
#include "tests/support/ExpectCalls.h"
#include "tests/support/PixelCanvas.h"

namespace {

constexpr DWORD c_style = WS_CHILD | WS_VISIBLE | BS_OWNERDRAW;
constexpr RECT c_bounds = {5, 5, 45, 25};
constexpr RECT c_item = {0, 0, 40, 20};

class FlagsButton : public CLzUiOwnerDrawButton {
public:
    UINT flags = ~0U;

protected:
    void OnPaintButton(CDC&, const RECT& bounds, UINT paintFlags) override {
        EXPECT_TRUE(::EqualRect(&bounds, &c_item));
        flags = paintFlags;
    }
};

class OwnerDrawButton : public ::testing::Test {
protected:
    OwnerDrawButton() { parent.Create(s_windowClass, L"", WS_POPUP | WS_VISIBLE, {0, 0, 100, 100}, nullptr); }

    static void Draw(CLzUiOwnerDrawButton& button, HDC dc, UINT itemState) {
        DRAWITEMSTRUCT item{.CtlType = ODT_BUTTON,
                            .CtlID = 7,
                            .itemID = 0,
                            .itemAction = ODA_DRAWENTIRE,
                            .itemState = itemState,
                            .hwndItem = button.m_hWnd,
                            .hDC = dc,
                            .rcItem = c_item,
                            .itemData = 0};
        button.DrawItem(&item);
    }

    UINT FlagsFor(UINT itemState) {
        Draw(flagsButton, canvas.Dc(), itemState);
        return flagsButton.flags;
    }

    inline static const fw::WindowClass s_windowClass{.name = L"KvTestParent"};
    kvhost::Journal journal;
    CWnd parent;
    FlagsButton flagsButton;
    kvtest::PixelCanvas canvas{40, 20};
};

TEST_F(OwnerDrawButton, Create_MakesTheSystemsOwnerDrawnButton) {
    CLzUiOwnerDrawButton button;
    EXPECT_TRUE(button.Create(L"text", c_style, c_bounds, parent, 7));
    EXPECT_CALLS(journal, "CLzUiOwnerDrawButton 7");
    EXPECT_EQ(button.GetDlgCtrlID(), 7);
    EXPECT_EQ(button.GetButtonStyle(), static_cast<UINT>(BS_OWNERDRAW));
}

TEST_F(OwnerDrawButton, Create_ToldToFail_MakesNoWindow) {
    kvhost::Faults::FailService(L"CLzUiOwnerDrawButton", 1);
    CLzUiOwnerDrawButton button;
    EXPECT_FALSE(button.Create(L"text", c_style, c_bounds, parent, 7));
    EXPECT_FALSE(button.IsWindow());
    kvhost::Faults::Reset();
}

TEST_F(OwnerDrawButton, DrawItem_TellsThePaintOperationTheState) {
    EXPECT_EQ(FlagsFor(0), 0U);
    EXPECT_EQ(FlagsFor(ODS_SELECTED), 1U);
    EXPECT_EQ(FlagsFor(ODS_FOCUS), 2U);
    EXPECT_EQ(FlagsFor(ODS_DISABLED), 4U);
    EXPECT_EQ(FlagsFor(ODS_DEFAULT), 8U);
    EXPECT_EQ(FlagsFor(ODS_SELECTED | ODS_FOCUS), 3U);
}

TEST_F(OwnerDrawButton, DrawItem_FlatButton_SaysSo) {
    flagsButton.SetFlat(true);
    EXPECT_EQ(FlagsFor(ODS_FOCUS), 18U);
    flagsButton.SetFlat(false);
    EXPECT_EQ(FlagsFor(ODS_FOCUS), 2U);
}

TEST_F(OwnerDrawButton, Flat_IsNotTheSystemsFlatStyle) {
    CLzUiOwnerDrawButton button;
    ASSERT_TRUE(button.Create(L"", c_style | BS_FLAT, c_bounds, parent, 7));
    EXPECT_FALSE(button.IsFlat());
}

TEST_F(OwnerDrawButton, Draw_FramedAndFlat_DifferInTheFrame) {
    CLzUiOwnerDrawButton button;
    ASSERT_TRUE(button.Create(L"", c_style, c_bounds, parent, 7));
    const COLORREF face = ::GetSysColor(COLOR_BTNFACE);
    Draw(button, canvas.Dc(), 0);
    EXPECT_LT(canvas.Count(c_item, face), 40 * 20);
    button.SetFlat(true);
    Draw(button, canvas.Dc(), ODS_FOCUS);
    EXPECT_EQ(canvas.Count(c_item, face), 40 * 20);
}

TEST_F(OwnerDrawButton, Draw_Caption_IsDrawn) {
    CLzUiOwnerDrawButton button;
    ASSERT_TRUE(button.Create(L"W", c_style, c_bounds, parent, 7));
    button.SetFlat(true);
    Draw(button, canvas.Dc(), 0);
    EXPECT_LT(canvas.Count(c_item, ::GetSysColor(COLOR_BTNFACE)), 40 * 20);
}

}  // namespace
