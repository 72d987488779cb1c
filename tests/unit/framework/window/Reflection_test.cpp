#include "framework/window/Reflection.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <string>
#include <vector>

#include "framework/base/DeviceContexts.h"
#include "framework/window/CComboBox.h"
#include "framework/window/CEdit.h"
#include "framework/window/CListBox.h"
#include "tests/support/MessagePump.h"
#include "tests/unit/framework/window/ProbeWindow.h"

namespace {

using kvtest::Probe;
using kvtest::ProbeWindow;

using Calls = std::vector<std::string>;

// Draws nothing and writes down what it was asked to do.
class OwnerDrawCombo : public CComboBox {
public:
    ~OwnerDrawCombo() override { DestroyWindow(); }

    void DrawItem(DRAWITEMSTRUCT* item) override {
        EXPECT_EQ(item->hwndItem, m_hWnd);
        drawn.push_back(static_cast<int>(item->itemID));
    }
    void MeasureItem(MEASUREITEMSTRUCT* item) override {
        EXPECT_NE(m_hWnd, nullptr) << "the object is bound when the first measure comes";
        calls.push_back("measure " + std::to_string(static_cast<int>(item->itemID)));
        item->itemHeight = 21;
    }
    void DeleteItem(DELETEITEMSTRUCT* item) override {
        calls.push_back("delete " + std::to_string(item->itemData));
    }
    int CompareItem(COMPAREITEMSTRUCT* item) override {
        ++compares;
        return item->itemData1 < item->itemData2 ? -1 : item->itemData1 > item->itemData2;
    }

    Calls calls;
    std::vector<int> drawn;
    int compares = 0;
};

class ReflectionTest : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(m_parent.Show()); }

    void AddNumbers(OwnerDrawCombo& combo, std::initializer_list<DWORD_PTR> numbers) {
        for (const DWORD_PTR number : numbers) {
            combo.SendMessage(CB_ADDSTRING, 0, static_cast<LPARAM>(number));
        }
    }

    ProbeWindow m_parent;
};

constexpr DWORD g_variable = WS_CHILD | WS_VISIBLE | CBS_DROPDOWNLIST | CBS_OWNERDRAWVARIABLE;

TEST_F(ReflectionTest, VariableCombo_IsAskedForItsHeightWhileItIsCreated) {
    OwnerDrawCombo combo;
    ASSERT_TRUE(combo.Create(g_variable, {0, 0, 100, 150}, m_parent, 1002));
    ASSERT_FALSE(combo.calls.empty());
    EXPECT_EQ(combo.calls.front(), "measure -1");
    AddNumbers(combo, {40, 50});
    EXPECT_EQ(combo.calls.back(), "measure 1");
    EXPECT_EQ(combo.GetItemHeight(1), 21);
}

TEST_F(ReflectionTest, VariableCombo_Shown_DrawsClosedPartAndEntries) {
    OwnerDrawCombo combo;
    ASSERT_TRUE(combo.Create(g_variable, {0, 0, 100, 150}, m_parent, 1002));
    AddNumbers(combo, {40, 50});
    combo.SetCurSel(1);
    combo.UpdateWindow();
    ASSERT_FALSE(combo.drawn.empty());
    EXPECT_EQ(std::count(combo.drawn.begin(), combo.drawn.end(), 1), std::ssize(combo.drawn))
        << "closed, it draws the selected entry only";
    combo.drawn.clear();
    combo.ShowDropDown();
    ::UpdateWindow(combo.GetListWindow());
    EXPECT_NE(std::find(combo.drawn.begin(), combo.drawn.end(), 0), combo.drawn.end());
    EXPECT_NE(std::find(combo.drawn.begin(), combo.drawn.end(), 1), combo.drawn.end());
}

TEST_F(ReflectionTest, ComboWithSubclassedList_StillDrawsItself) {
    OwnerDrawCombo combo;
    ASSERT_TRUE(combo.Create(g_variable, {0, 0, 100, 150}, m_parent, 1002));
    CListBox list;
    ASSERT_TRUE(list.SubclassWindow(combo.GetListWindow()));
    AddNumbers(combo, {40, 50});
    EXPECT_EQ(combo.calls.back(), "measure 1");
    combo.ShowDropDown();
    combo.drawn.clear();
    list.Invalidate();
    list.UpdateWindow();
    EXPECT_GE(combo.drawn.size(), 2U);
}

TEST_F(ReflectionTest, EntriesDeleted_ByCallAndByDestruction_AreAllReported) {
    OwnerDrawCombo combo;
    ASSERT_TRUE(combo.Create(g_variable, {0, 0, 100, 150}, m_parent, 1002));
    AddNumbers(combo, {40, 50, 60});
    combo.calls.clear();
    combo.DeleteString(1);
    EXPECT_EQ(combo.calls, (Calls{"delete 50"}));
    combo.calls.clear();
    combo.DestroyWindow();
    std::sort(combo.calls.begin(), combo.calls.end());
    EXPECT_EQ(combo.calls, (Calls{"delete 40", "delete 60"}));
}

TEST_F(ReflectionTest, EntriesDeleted_ParentDestroyed_AreReportedToo) {
    OwnerDrawCombo combo;
    ASSERT_TRUE(combo.Create(g_variable, {0, 0, 100, 150}, m_parent, 1002));
    AddNumbers(combo, {40});
    combo.calls.clear();
    m_parent.DestroyWindow();
    EXPECT_EQ(combo.calls, (Calls{"delete 40"}));
}

TEST_F(ReflectionTest, SortedCombo_AsksForTheOrder) {
    OwnerDrawCombo combo;
    ASSERT_TRUE(combo.Create(g_variable | CBS_SORT, {0, 0, 100, 150}, m_parent, 1002));
    AddNumbers(combo, {50, 40, 60});
    EXPECT_GT(combo.compares, 0);
    EXPECT_EQ(combo.GetItemData(0), 40U);
    EXPECT_EQ(combo.GetItemData(2), 60U);
}

TEST_F(ReflectionTest, ParentMeasuresItself_ControlIsNotAsked) {
    m_parent.filter = [](UINT message, WPARAM, LPARAM lParam, LRESULT& result) {
        if (message != WM_MEASUREITEM) {
            return false;
        }
        reinterpret_cast<MEASUREITEMSTRUCT*>(lParam)->itemHeight = 33;
        result = TRUE;
        return true;
    };
    OwnerDrawCombo combo;
    ASSERT_TRUE(combo.Create(g_variable, {0, 0, 100, 150}, m_parent, 1002));
    AddNumbers(combo, {40});
    EXPECT_TRUE(combo.calls.empty());
    EXPECT_EQ(combo.GetItemHeight(0), 33);
}

// A control that answers what its parent left alone.
class SelfColouredEdit : public CEdit {
public:
    ~SelfColouredEdit() override { DestroyWindow(); }

    bool OnReflectedMessage(UINT message, WPARAM wParam, LPARAM, LRESULT& result) override {
        reflected.push_back(message);
        if (message == WM_CTLCOLOREDIT) {
            ::SetBkColor(reinterpret_cast<HDC>(wParam), RGB(1, 2, 3));
            result = reinterpret_cast<LRESULT>(::GetStockObject(GRAY_BRUSH));
            return true;
        }
        return false;
    }

    std::vector<UINT> reflected;
};

TEST_F(ReflectionTest, Colours_AskedOfTheParentFirst_ThenOfTheControl) {
    SelfColouredEdit edit;
    ASSERT_TRUE(edit.Create(WS_CHILD | WS_VISIBLE, {0, 0, 100, 20}, m_parent, 1038));
    const fw::WindowDc dc(edit);
    const auto ask = [&] {
        return ::SendMessageW(m_parent, WM_CTLCOLOREDIT, reinterpret_cast<WPARAM>(dc.Get()),
                              reinterpret_cast<LPARAM>(edit.m_hWnd));
    };
    EXPECT_EQ(ask(), reinterpret_cast<LRESULT>(::GetStockObject(GRAY_BRUSH)));
    edit.reflected.clear();
    m_parent.filter = [](UINT message, WPARAM, LPARAM, LRESULT& result) {
        result = reinterpret_cast<LRESULT>(::GetStockObject(WHITE_BRUSH));
        return message == WM_CTLCOLOREDIT;
    };
    EXPECT_EQ(ask(), reinterpret_cast<LRESULT>(::GetStockObject(WHITE_BRUSH)));
    EXPECT_TRUE(edit.reflected.empty());
}

TEST_F(ReflectionTest, EditPaints_ParentIsAskedForItsColours) {
    Probe<CEdit> edit;
    ASSERT_TRUE(edit.Create(WS_CHILD | WS_VISIBLE, {0, 0, 100, 20}, m_parent, 1038));
    edit.Invalidate();
    edit.UpdateWindow();
    EXPECT_GT(m_parent.CountOf(WM_CTLCOLOREDIT), 0);
    m_parent.messages.clear();
    edit.SetReadOnly();
    edit.Invalidate();
    edit.UpdateWindow();
    EXPECT_GT(m_parent.CountOf(WM_CTLCOLORSTATIC), 0);
}

TEST_F(ReflectionTest, Command_LeftByTheParent_ComesBackToTheControl) {
    SelfColouredEdit edit;
    ASSERT_TRUE(edit.Create(WS_CHILD | WS_VISIBLE, {0, 0, 100, 20}, m_parent, 1038));
    edit.reflected.clear();
    ::SendMessageW(edit, WM_CHAR, L'x', 1);
    EXPECT_NE(std::find(edit.reflected.begin(), edit.reflected.end(), UINT{WM_COMMAND}),
              edit.reflected.end());
}

TEST_F(ReflectionTest, ParentOfAnotherKind_ReflectsByCall) {
    SelfColouredEdit edit;
    ASSERT_TRUE(edit.Create(WS_CHILD | WS_VISIBLE, {0, 0, 100, 20}, m_parent, 1038));
    LRESULT result = 0;
    EXPECT_FALSE(fw::ReflectMessage(m_parent, WM_PAINT, 0, 0, result));
    EXPECT_FALSE(fw::ReflectMessage(m_parent, WM_COMMAND, 0, 0, result)) << "a menu command has no sender";
    EXPECT_FALSE(fw::ReflectMessage(m_parent, WM_NOTIFY, 0, 0, result));
    const fw::WindowDc dc(edit);
    EXPECT_TRUE(fw::ReflectMessage(m_parent, WM_CTLCOLOREDIT, reinterpret_cast<WPARAM>(dc.Get()),
                                   reinterpret_cast<LPARAM>(edit.m_hWnd), result));
}

}  // namespace
