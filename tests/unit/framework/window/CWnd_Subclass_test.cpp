#include <gtest/gtest.h>

#include <memory>

#include "framework/window/CEdit.h"
#include "framework/window/CWnd.h"
#include "tests/unit/framework/window/ProbeWindow.h"

namespace {

using kvtest::Probe;
using kvtest::ProbeWindow;

class Subclass : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(m_parent.Show());
        m_edit = ::CreateWindowExW(0, L"EDIT", L"text", WS_CHILD | WS_VISIBLE, 0, 0, 100, 20, m_parent,
                                   reinterpret_cast<HMENU>(ULONG_PTR{5}), nullptr, nullptr);
        ASSERT_NE(m_edit, nullptr);
    }

    ProbeWindow m_parent;
    HWND m_edit = nullptr;
};

TEST_F(Subclass, ExistingControl_SendsItsMessagesHereFirst) {
    Probe<CEdit> edit;
    ASSERT_TRUE(edit.SubclassWindow(m_edit));
    EXPECT_EQ(CWnd::FromHandlePermanent(m_edit), &edit);
    ::SendMessageW(m_edit, WM_CHAR, L'x', 1);
    EXPECT_EQ(edit.CountOf(WM_CHAR), 1);
    EXPECT_EQ(edit.GetWindowText(), L"xtext");
    edit.filter = [](UINT message, WPARAM, LPARAM, LRESULT&) { return message == WM_CHAR; };
    ::SendMessageW(m_edit, WM_CHAR, L'y', 1);
    EXPECT_EQ(edit.GetWindowText(), L"xtext");
}

TEST_F(Subclass, TakenAlready_IsRefused) {
    Probe<CEdit> edit;
    ASSERT_TRUE(edit.SubclassDlgItem(5, m_parent));
    CEdit second;
    EXPECT_FALSE(second.SubclassWindow(m_edit));
    EXPECT_FALSE(edit.SubclassWindow(m_parent));
    EXPECT_FALSE(second.SubclassWindow(nullptr));
    EXPECT_FALSE(second.SubclassDlgItem(6, m_parent));
}

TEST_F(Subclass, ObjectEnds_ControlLivesOnByItself) {
    const LONG_PTR before = ::GetWindowLongPtrW(m_edit, GWLP_WNDPROC);
    {
        CEdit edit;
        ASSERT_TRUE(edit.SubclassWindow(m_edit));
        EXPECT_NE(::GetWindowLongPtrW(m_edit, GWLP_WNDPROC), before);
    }
    EXPECT_TRUE(::IsWindow(m_edit));
    EXPECT_EQ(::GetWindowLongPtrW(m_edit, GWLP_WNDPROC), before);
    ::SendMessageW(m_edit, WM_CHAR, L'x', 1);
    EXPECT_EQ(::GetWindowTextLengthW(m_edit), 5);
}

WNDPROC g_below = nullptr;
int g_foreignCalls = 0;

LRESULT CALLBACK ForeignProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    ++g_foreignCalls;
    return ::CallWindowProcW(g_below, window, message, wParam, lParam);
}

TEST_F(Subclass, SomebodySubclassedOnTop_LettingGoKeepsTheChainWhole) {
    {
        CEdit edit;
        ASSERT_TRUE(edit.SubclassWindow(m_edit));
        g_below = reinterpret_cast<WNDPROC>(
            ::SetWindowLongPtrW(m_edit, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&ForeignProcedure)));
    }
    g_foreignCalls = 0;
    ::SendMessageW(m_edit, WM_CHAR, L'x', 1);
    EXPECT_GT(g_foreignCalls, 0);
    EXPECT_EQ(::GetWindowTextLengthW(m_edit), 5);
    EXPECT_TRUE(::DestroyWindow(m_edit));
}

TEST_F(Subclass, LetGoUnderSomebodyAndTakenAgain_EachMessageComesOnce) {
    auto first = std::make_unique<CEdit>();
    ASSERT_TRUE(first->SubclassWindow(m_edit));
    g_below = reinterpret_cast<WNDPROC>(
        ::SetWindowLongPtrW(m_edit, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&ForeignProcedure)));
    first.reset();
    Probe<CEdit> second;
    ASSERT_TRUE(second.SubclassWindow(m_edit));
    ::SendMessageW(m_edit, WM_CHAR, L'x', 1);
    EXPECT_EQ(second.CountOf(WM_CHAR), 1);
    EXPECT_EQ(second.GetWindowText(), L"xtext");
    second.UnsubclassWindow();
    ::SendMessageW(m_edit, WM_CHAR, L'y', 1);
    EXPECT_EQ(::GetWindowTextLengthW(m_edit), 6);
}

TEST_F(Subclass, Unsubclass_InsideAHandler_DefaultStillRuns) {
    Probe<CEdit> edit;
    ASSERT_TRUE(edit.SubclassWindow(m_edit));
    edit.filter = [&](UINT message, WPARAM, LPARAM, LRESULT&) {
        if (message == WM_CHAR) {
            EXPECT_EQ(edit.UnsubclassWindow(), m_edit);
        }
        return false;
    };
    ::SendMessageW(m_edit, WM_CHAR, L'x', 1);
    EXPECT_EQ(::GetWindowTextLengthW(m_edit), 5);
    EXPECT_EQ(edit.m_hWnd, nullptr);
}

TEST_F(Subclass, ControlDestroyedByItsParent_ObjectIsFree) {
    Probe<CEdit> edit;
    ASSERT_TRUE(edit.SubclassWindow(m_edit));
    m_parent.DestroyWindow();
    EXPECT_EQ(edit.m_hWnd, nullptr);
    EXPECT_EQ(edit.finals.size(), 1U);
}

}  // namespace
