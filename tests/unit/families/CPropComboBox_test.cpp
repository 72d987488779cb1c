#include "families/CPropComboBox.h"

#include "framework/base/DeviceContexts.h"
#include "framework/window/MainWindow.h"
#include "refhost/ui/ControlTheme.h"
#include "tests/support/DrawnText.h"
#include "tests/unit/families/ListBench.h"

// The drop-down window over the row: its keys, buttons, frame and tips.

namespace {

// Holds keys down for the thread, as a test that posts messages cannot.
class HeldKeys {
public:
    HeldKeys(std::initializer_list<int> keys) {
        ::GetKeyboardState(m_former);
        BYTE state[256];
        std::copy(std::begin(m_former), std::end(m_former), std::begin(state));
        for (const int key : keys) {
            state[key] = 0x80;
        }
        ::SetKeyboardState(state);
    }
    HeldKeys(const HeldKeys&) = delete;
    HeldKeys& operator=(const HeldKeys&) = delete;
    ~HeldKeys() { ::SetKeyboardState(m_former); }

private:
    BYTE m_former[256]{};
};

class PropComboBox : public kvtest::ListBench {
protected:
    PropComboBox() { Edit(); }
    ~PropComboBox() override { kvhost::SetControlTheme(kvhost::ControlTheme::AsDesktop); }

    // Runs the key through the window alone, without the queue. True if it is swallowed.
    bool Translate(UINT key) {
        MSG message{List().m_hWnd, WM_KEYDOWN, key, 1, 0, {}};
        return List().PreTranslateMessage(&message) != FALSE;
    }
};

TEST_F(PropComboBox, Tab_NothingChosen_OnlyTheKeyIsTold) {
    Key(VK_TAB, 0x000F0001);
    EXPECT_CALLS(Calls(), "OnKeyDown 9 983041");
    EXPECT_EQ(Row().m_state, EditState_InEdit);
}

TEST_F(PropComboBox, Tab_ChoicePending_IsWrittenBeforeTheKeyIsTold) {
    List().SetCurSel(1);
    Key(VK_TAB);
    EXPECT_CALLS(Calls(), "write 1", "OnKeyDown 9 1");
}

TEST_F(PropComboBox, Tab_IsSwallowed) {
    EXPECT_TRUE(Translate(VK_TAB));
}

TEST_F(PropComboBox, Tab_PaletteLetsTheRowGo_NothingIsTouchedAfterwards) {
    sink->onEvent = [this](const std::wstring&) {
        Discard();
        return S_OK;
    };
    ::PostMessageW(List().m_hWnd, WM_KEYDOWN, VK_TAB, 1);
    kvtest::PumpWaiting();
    EXPECT_FALSE(shell);
}

TEST_F(PropComboBox, ShiftCtrlLetter_IsToldAndGoesOn) {
    const HeldKeys held{VK_SHIFT, VK_CONTROL};
    EXPECT_FALSE(Translate('K'));
    EXPECT_CALLS(Calls(), "OnKeyDown 75 1");
}

TEST_F(PropComboBox, ShiftCtrlDigit_IsNotTold) {
    const HeldKeys held{VK_SHIFT, VK_CONTROL};
    EXPECT_FALSE(Translate('4'));
    EXPECT_CALLS(Calls());
}

TEST_F(PropComboBox, CtrlLetterAlone_IsNotTold) {
    const HeldKeys held{VK_CONTROL};
    EXPECT_FALSE(Translate('K'));
    EXPECT_CALLS(Calls());
}

TEST_F(PropComboBox, ShiftCtrlLetter_OpenList_IsNotTold) {
    Drop();
    const HeldKeys held{VK_SHIFT, VK_CONTROL};
    EXPECT_FALSE(Translate('K'));
    EXPECT_CALLS(Calls());
}

TEST_F(PropComboBox, OtherKeys_AreTheWindows) {
    for (const UINT key : {VK_RETURN, VK_ESCAPE, VK_DOWN, VK_F4}) {
        EXPECT_FALSE(Translate(key)) << key;
    }
    EXPECT_CALLS(Calls());
}

TEST_F(PropComboBox, WithoutARow_TabIsTheWindows) {
    CPropComboBox lone;
    ASSERT_TRUE(lone.Create(WS_CHILD | CBS_DROPDOWNLIST, {0, 0, 50, 50}, frame, 1));
    MSG message{lone.m_hWnd, WM_KEYDOWN, VK_TAB, 1, 0, {}};
    EXPECT_FALSE(lone.PreTranslateMessage(&message));
}

TEST_F(PropComboBox, RightAndMiddleButton_AreToldInTheRowsCoordinates) {
    ::SendMessageW(List().m_hWnd, WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(30, 12));
    ::SendMessageW(List().m_hWnd, WM_MBUTTONDOWN, MK_MBUTTON, MAKELPARAM(1, 0));
    const LONG_PTR right = MAKELPARAM(28, 10);
    const LONG_PTR middle = MAKELPARAM(-1, -2);
    EXPECT_CALLS(Calls(), "OnRButtonDown 2 " + std::to_string(right),
                 "OnMButtonDown 16 " + std::to_string(middle));
}

TEST_F(PropComboBox, Wheel_ClosedList_ChoosesNothing) {
    ::SendMessageW(List().m_hWnd, WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-WHEEL_DELTA)), 0);
    EXPECT_CALLS(Calls());
    EXPECT_EQ(List().GetCurSel(), 0);
}

TEST_F(PropComboBox, Create_FrameStylesAreTakenOut) {
    struct Seen : CPropComboBox {
        ~Seen() override { DestroyWindow(); }
        DWORD exStyle = ~0U;
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
            const LRESULT result = CPropComboBox::WindowProc(message, wParam, lParam);
            if (message == WM_CREATE) {
                exStyle = reinterpret_cast<const CREATESTRUCTW*>(lParam)->dwExStyle;
            }
            return result;
        }
    } combo;
    constexpr DWORD framed = WS_EX_DLGMODALFRAME | WS_EX_CLIENTEDGE | WS_EX_STATICEDGE;
    ASSERT_TRUE(combo.CLzUiComboBox::Create(WS_CHILD | CBS_DROPDOWNLIST, {0, 0, 50, 50}, frame, 1,
                                            framed | WS_EX_NOPARENTNOTIFY));
    EXPECT_EQ(combo.exStyle & framed, 0U);
    EXPECT_NE(combo.exStyle & WS_EX_NOPARENTNOTIFY, 0U);
}

// The frame. Over a row it lies outside of what is seen.

class PropComboBoxFrame : public PropComboBox {
protected:
    PropComboBoxFrame() {
        EXPECT_TRUE(combo.Create(WS_CHILD | WS_VISIBLE | CBS_DROPDOWNLIST, {50, 100, 150, 200}, frame, 1));
    }
    CPropComboBox combo;
};

TEST_F(PropComboBoxFrame, Paint_ClassicTheme_IsFlat) {
    kvhost::SetControlTheme(kvhost::ControlTheme::Classic);
    combo.RedrawWindow();
    const fw::WindowDc dc(combo.m_hWnd);
    const CRect client = combo.GetClientRect();
    const COLORREF ground = ::GetSysColor(COLOR_WINDOW);
    const COLORREF face = ::GetSysColor(COLOR_BTNFACE);
    for (const int inset : {0, 1}) {
        EXPECT_EQ(::GetPixel(dc, inset, client.Height() / 2), ground) << inset;
        EXPECT_EQ(::GetPixel(dc, client.Width() / 2, inset), ground) << inset;
    }
    const int left = client.Width() - 2 - ::GetSystemMetrics(SM_CXHTHUMB);
    EXPECT_EQ(::GetPixel(dc, left, client.Height() / 2), face);
    EXPECT_EQ(::GetPixel(dc, left + 1, client.Height() / 2), face);
}

TEST_F(PropComboBoxFrame, Paint_VistaTheme_IsTheHosts) {
    kvhost::SetControlTheme(kvhost::ControlTheme::Vista);
    combo.RedrawWindow();
    const fw::WindowDc dc(combo.m_hWnd);
    EXPECT_EQ(::GetPixel(dc, 0, 5), ::GetSysColor(COLOR_BTNSHADOW));
}

// The row's tip, which the list paints while it lies over the row

TEST_F(PropComboBox, DrawTip_ShowsTheChoice) {
    CPropTextTooltip tip;
    ASSERT_TRUE(tip.Create(frame));
    tip.MoveWindow(0, 0, 200, 20);
    ::ShowWindow(tip.m_hWnd, SW_SHOWNOACTIVATE);
    kvtest::PumpWaiting();
    const auto tipHandle = reinterpret_cast<LPARAM>(tip.m_hWnd);
    EXPECT_EQ(::SendMessageW(List().m_hWnd, WM_KVPE_DRAW_TIP, 1042, tipHandle), S_OK);
    const fw::WindowDc dc(tip.m_hWnd);
    EXPECT_EQ(::GetPixel(dc, 190, 0), RGB(253, 253, 253)) << "the ground of tips";
    EXPECT_EQ(::GetPixel(dc, 190, 19), RGB(218, 218, 218));
    List().SetCurSel(-1);
    EXPECT_EQ(static_cast<HRESULT>(::SendMessageW(List().m_hWnd, WM_KVPE_DRAW_TIP, 1042, tipHandle)), E_FAIL);
}

}  // namespace
