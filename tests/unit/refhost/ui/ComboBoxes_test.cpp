#include <gtest/gtest.h>

#include "framework/base/DeviceContexts.h"
#include "framework/base/Handles.h"
#include "host_sdk/CKvUiMRUComboBox.h"
#include "host_sdk/CLzUiListBox.h"
#include "refhost/testing/Faults.h"
#include "refhost/ui/ControlTheme.h"
#include "tests/support/ExpectCalls.h"
#include "tests/support/MessagePump.h"
#include "tests/support/WarmUp.h"

namespace {

const fw::WindowClass s_windowClass{.name = L"KvTestComboFrame"};
constexpr DWORD c_plainStyle = WS_CHILD | WS_VISIBLE | CBS_DROPDOWNLIST | WS_VSCROLL;
constexpr DWORD c_ownerDrawnStyle = c_plainStyle | CBS_OWNERDRAWFIXED | CBS_HASSTRINGS;

// Counts the wheel that reaches it.
class Frame : public CWnd {
public:
    ~Frame() override { DestroyWindow(); }
    int wheels = 0;

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_MOUSEWHEEL) {
            ++wheels;
            return 0;
        }
        return CWnd::WindowProc(message, wParam, lParam);
    }
};

// Notes the messages that it sees.
class SeeingList : public CLzUiListBox {
public:
    int messages = 0;

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        ++messages;
        return CLzUiListBox::WindowProc(message, wParam, lParam);
    }
};

// Notes what it is told to draw.
template <class Base>
class DrawnCombo : public Base {
public:
    ~DrawnCombo() override { this->DestroyWindow(); }
    std::vector<UINT> states;

    void DrawItem(DRAWITEMSTRUCT* item) override {
        states.push_back(item->itemState);
        Base::DrawItem(item);
    }
};

class ComboBoxes : public ::testing::Test {
protected:
    ComboBoxes() {
        frame.Create(s_windowClass, L"", WS_POPUP | WS_VISIBLE, {100, 100, 400, 300}, nullptr);
        ::SetForegroundWindow(frame);
    }
    ~ComboBoxes() override {
        kvhost::SetControlTheme(kvhost::ControlTheme::AsDesktop);
        kvhost::Faults::Reset();
    }

    template <class Combo>
    void Fill(Combo& combo, DWORD style) {
        ASSERT_TRUE(combo.Create(style, c_place, frame, 7));
        combo.AddString(L"one");
        combo.AddString(L"two");
        combo.SetCurSel(0);
        combo.SetFocus();
        kvtest::PumpWaiting();
    }

    static constexpr RECT c_place = {0, 0, 120, 200};
    Frame frame;
};

TEST_F(ComboBoxes, Create_IsNotedAndFailsWhenTheHostSaysSo) {
    CLzUiComboBox combo;
    kvhost::Faults::FailService(L"CLzUiComboBox", 1);
    kvhost::Journal journal;
    EXPECT_FALSE(combo.Create(c_plainStyle, c_place, frame, 7));
    EXPECT_FALSE(combo.IsWindow());
    EXPECT_TRUE(combo.Create(c_plainStyle, c_place, frame, 7));
    EXPECT_CALLS(journal, "CLzUiComboBox 7", "CLzUiComboBox 7");
    combo.DestroyWindow();
}

TEST_F(ComboBoxes, ListBox_SetBeforeTheWindow_ReceivesTheListsMessages) {
    CLzUiComboBox combo;
    SeeingList list;
    combo.SetListBox(&list);
    Fill(combo, c_plainStyle);
    EXPECT_EQ(list.m_hWnd, combo.GetListWindow());
    EXPECT_GT(list.messages, 0);
    combo.DestroyWindow();
    EXPECT_FALSE(list.m_hWnd);
}

TEST_F(ComboBoxes, ListBox_ReplacedByAnother_HearsNothingMore) {
    CLzUiComboBox combo;
    SeeingList first;
    SeeingList second;
    Fill(combo, c_plainStyle);
    combo.SetListBox(&first);
    combo.SetListBox(&second);
    first.messages = 0;
    combo.AddString(L"three");
    EXPECT_EQ(first.messages, 0);
    EXPECT_GT(second.messages, 0);
    EXPECT_EQ(combo.GetListBox(), &second);
    combo.SetListBox(nullptr);
    EXPECT_FALSE(second.m_hWnd);
    EXPECT_EQ(combo.GetCount(), 3);
}

TEST_F(ComboBoxes, DialogParent_IsTheListsParentUntilOneIsSet) {
    CLzUiComboBox combo;
    Fill(combo, c_plainStyle);
    EXPECT_EQ(combo.GetLzUiParent(), frame.m_hWnd);
    combo.SetLzUiParent(combo.m_hWnd);
    EXPECT_EQ(combo.GetLzUiParent(), combo.m_hWnd);
}

TEST_F(ComboBoxes, Wheel_ClosedList_IsTheParents) {
    CLzUiComboBox combo;
    Fill(combo, c_plainStyle);
    combo.SendMessage(WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-WHEEL_DELTA)));
    EXPECT_EQ(frame.wheels, 1);
    EXPECT_EQ(combo.GetCurSel(), 0);
}

TEST_F(ComboBoxes, Wheel_OpenList_ScrollsTheListAndChoosesNothing) {
    CLzUiComboBox combo;
    Fill(combo, c_plainStyle);
    for (int i = 0; i < 100; ++i) {
        combo.AddString(L"further");
    }
    combo.ShowDropDown();
    combo.SendMessage(WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-WHEEL_DELTA)));
    EXPECT_EQ(frame.wheels, 0);
    EXPECT_GT(::SendMessageW(combo.GetListWindow(), LB_GETTOPINDEX, 0, 0), 0);
    EXPECT_EQ(combo.GetCurSel(), 0);
    combo.ShowDropDown(FALSE);
}

TEST_F(ComboBoxes, Theme_IsTheDesktopsUnlessTheHostHasOne) {
    kvhost::SetControlTheme(kvhost::ControlTheme::Vista);
    EXPECT_TRUE(CLzUiComboBox::IsVistaTheme());
    kvhost::SetControlTheme(kvhost::ControlTheme::Classic);
    EXPECT_FALSE(CLzUiComboBox::IsVistaTheme());
    EXPECT_TRUE(CLzUiComboBox::IsInEdit(ODS_COMBOBOXEDIT | ODS_SELECTED));
    EXPECT_FALSE(CLzUiComboBox::IsInEdit(ODS_SELECTED));
}

TEST_F(ComboBoxes, VistaTheme_ClosedPart_IsDrawnByTheListItself) {
    DrawnCombo<CKvUiComboBox> combo;
    Fill(combo, c_ownerDrawnStyle);
    kvhost::SetControlTheme(kvhost::ControlTheme::Vista);
    combo.states.clear();
    combo.RedrawWindow();
    ASSERT_EQ(combo.states.size(), 1u);
    EXPECT_EQ(combo.states.front(), static_cast<UINT>(ODS_COMBOBOXEDIT | ODS_FOCUS));
}

TEST_F(ComboBoxes, VistaTheme_PlainList_ShowsItsText) {
    CLzUiComboBox combo;
    Fill(combo, c_plainStyle);
    kvhost::SetControlTheme(kvhost::ControlTheme::Vista);
    combo.RedrawWindow();
    const fw::WindowDc dc(combo.m_hWnd);
    const CRect client = combo.GetClientRect();
    EXPECT_EQ(::GetPixel(dc, 0, 0), ::GetSysColor(COLOR_BTNSHADOW));
    bool hasText = false;
    for (int x = 4; x < 40; ++x) {
        hasText = hasText || ::GetPixel(dc, x, client.Height() / 2) == ::GetSysColor(COLOR_WINDOWTEXT);
    }
    EXPECT_TRUE(hasText);
}

TEST_F(ComboBoxes, HostsEntries_AreAsTallAsTheirFont) {
    CKvUiMRUComboBox combo;
    Fill(combo, c_ownerDrawnStyle);
    const fw::UniqueFont large(
        ::CreateFontW(-40, 0, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0, L"Tahoma"));
    const int before = combo.GetRowHeight();
    combo.SetFont(large.Get());
    const int height = combo.GetRowHeight();
    EXPECT_GT(height, before);
    combo.SetItemHeight(-1, static_cast<UINT>(height));
    const int closedHeight = combo.GetItemHeight(-1);  // the system adds room for the edge
    combo.SetItemHeight(-1, 5);
    combo.RecalcHeight();
    EXPECT_EQ(combo.GetItemHeight(-1), closedHeight);
    EXPECT_EQ(combo.GetItemHeight(0), height);
    MEASUREITEMSTRUCT item{};
    combo.MeasureItem(&item);
    EXPECT_EQ(item.itemHeight, static_cast<UINT>(height));
    combo.DestroyWindow();
}

}  // namespace
