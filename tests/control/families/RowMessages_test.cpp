#include "framework/base/DeviceContexts.h"
#include "tests/control/support/RowContainer.h"

namespace {

class RowMessages : public kvtest::RowContainer {
protected:
    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        return ::SendMessageW(Row(), message, wParam, lParam);
    }
    static std::string At(int x, int y) { return std::to_string(kvtest::PackedPoint(x, y)); }
};

TEST_F(RowMessages, LButtonDown_IsLeftUnhandledSoThePaletteHearsOfTheClick) {
    CreateTextRow({L"alpha"}, true);
    Send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(3, 3));
    EXPECT_CALLS(Events(), "OnClick");
}

TEST_F(RowMessages, LButtonDblClk_NoBox_ThePaletteHearsOfIt) {
    CreateTextRow({L"alpha"}, true);
    Send(WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(3, 3));
    EXPECT_CALLS(Events(), "OnDblClick");
}

TEST_F(RowMessages, LButtonDblClk_WithABox_IsTheRows) {
    CreateTextRow({L"alpha"});
    UIActivate();
    EXPECT_EQ(As<IOleInPlaceObject>()->UIDeactivate(), S_OK);
    Clear();
    Send(WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(3, 3));
    EXPECT_EQ(Events(), kvtest::CallLines{});
    EXPECT_TRUE(::IsWindowVisible(Box()));
}

TEST_F(RowMessages, RButtonDown_NotInEdit_ReachesThePaletteInParentCoordinates) {
    CreateTextRow({L"alpha"});
    Send(WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(3, 4));
    EXPECT_CALLS(Events(), "OnRButtonDown 2 " + At(13, 14));
}

TEST_F(RowMessages, RButtonDown_ReadOnlyRow_ReachesThePaletteInParentCoordinates) {
    CreateTextRow({L"alpha"}, true);
    UIActivate();
    Send(WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(3, 4));
    EXPECT_CALLS(Events(), "OnRButtonDown 2 " + At(13, 14));
}

TEST_F(RowMessages, RButtonDown_InEdit_GoesToTheBoxAndIsAClick) {
    CreateTextRow({L"alpha"});
    UIActivate();
    Send(WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(3, 4));
    EXPECT_CALLS(Events(), "OnClick");
    MSG posted{};
    EXPECT_TRUE(::PeekMessageW(&posted, Box(), WM_RBUTTONDOWN, WM_RBUTTONDOWN, PM_REMOVE));
}

TEST_F(RowMessages, MButtonDown_ReachesThePaletteInParentCoordinates) {
    CreateTextRow({L"alpha"});
    Send(WM_MBUTTONDOWN, MK_MBUTTON, MAKELPARAM(3, 4));
    EXPECT_CALLS(Events(), "OnMButtonDown 16 " + At(13, 14));
}

TEST_F(RowMessages, KeyDown_ReachesThePaletteAndGivesZero) {
    CreateTextRow({L"alpha"});
    sink->onEvent = [](const std::wstring&) { return E_FAIL; };
    EXPECT_EQ(Send(WM_KEYDOWN, VK_DOWN, 0x1500001), 0);
    EXPECT_CALLS(Events(), "OnKeyDown 40 22020097");
}

TEST_F(RowMessages, MouseActivate_MiddleButton_ActivatesNothing) {
    CreateTextRow({L"alpha"});
    EXPECT_EQ(
        Send(WM_MOUSEACTIVATE, reinterpret_cast<WPARAM>(frame.m_hWnd), MAKELPARAM(HTCLIENT, WM_MBUTTONDOWN)),
        0);
    EXPECT_FALSE(site->isUIActive);
    EXPECT_NO_CALLS(journal);
}

TEST_F(RowMessages, MouseActivate_OtherButtons_ActivateTheRow) {
    CreateTextRow({L"alpha"});
    Send(WM_MOUSEACTIVATE, reinterpret_cast<WPARAM>(frame.m_hWnd), MAKELPARAM(HTCLIENT, WM_LBUTTONDOWN));
    EXPECT_TRUE(site->isUIActive);
}

TEST_F(RowMessages, CtlColor_AllThreeMessages_GiveTheRowsBrushAndColours) {
    CreateTextRow({L"alpha"});
    EXPECT_EQ(control->put_ForeColor(RGB(1, 2, 3)), S_OK);
    EXPECT_EQ(control->put_BackColor(RGB(4, 5, 6)), S_OK);
    UIActivate();
    LRESULT brushes[3]{};
    int index = 0;
    for (const UINT message :
         {25u, static_cast<UINT>(WM_CTLCOLOREDIT), static_cast<UINT>(WM_CTLCOLORSTATIC)}) {
        const fw::WindowDc screen(nullptr);
        const fw::MemoryDc dc(screen);
        brushes[index] = Send(message, reinterpret_cast<WPARAM>(dc.Get()), reinterpret_cast<LPARAM>(Box()));
        EXPECT_EQ(::GetTextColor(dc), RGB(1, 2, 3));
        EXPECT_EQ(::GetBkColor(dc), RGB(4, 5, 6));
        EXPECT_EQ(::GetBkMode(dc), TRANSPARENT);
        ++index;
    }
    LOGBRUSH brush{};
    ASSERT_NE(::GetObjectW(reinterpret_cast<HGDIOBJ>(brushes[0]), sizeof brush, &brush), 0);
    EXPECT_EQ(brush.lbColor, RGB(4, 5, 6));
    EXPECT_EQ(brushes[0], brushes[1]);
    EXPECT_EQ(brushes[0], brushes[2]);
}

TEST_F(RowMessages, CtlColor_SameBackColourAgain_KeepsTheBrush) {
    CreateTextRow({L"alpha"});
    EXPECT_EQ(control->put_BackColor(RGB(4, 5, 6)), S_OK);
    const fw::WindowDc screen(nullptr);
    const fw::MemoryDc dc(screen);
    const LRESULT before = Send(WM_CTLCOLOREDIT, reinterpret_cast<WPARAM>(dc.Get()), 0);
    EXPECT_EQ(control->put_BackColor(RGB(4, 5, 6)), S_OK);
    EXPECT_EQ(Send(WM_CTLCOLOREDIT, reinterpret_cast<WPARAM>(dc.Get()), 0), before);
    LOGBRUSH brush{};
    EXPECT_NE(::GetObjectW(reinterpret_cast<HGDIOBJ>(before), sizeof brush, &brush), 0);
}

TEST_F(RowMessages, GetDlgCode_AsksForAllKeys) {
    CreateTextRow({L"alpha"});
    EXPECT_EQ(Send(WM_GETDLGCODE), 4);
}

TEST_F(RowMessages, EraseBackground_IsAnsweredWithoutPainting) {
    CreateTextRow({L"alpha"});
    const fw::WindowDc screen(nullptr);
    const fw::MemoryDc dc(screen);
    EXPECT_EQ(Send(WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc.Get())), 1);
}

TEST_F(RowMessages, ListHover_RowWithoutPreview_Fails) {
    CreateTextRow({L"alpha"});
    EXPECT_EQ(static_cast<HRESULT>(Send(1824, 1002, 3)), E_FAIL);
}

TEST_F(RowMessages, DrawTip_OtherThanTheTip_IsIgnored) {
    CreateTextRow({L"alpha"});
    EXPECT_EQ(Send(WM_APP + 1, 1, 0), 0);
}

TEST_F(RowMessages, MouseLeave_IsLeftToTheSystem) {
    CreateTextRow({L"alpha"});
    EXPECT_EQ(Send(WM_MOUSELEAVE), 0);
    EXPECT_NO_CALLS(journal);
}

}  // namespace
