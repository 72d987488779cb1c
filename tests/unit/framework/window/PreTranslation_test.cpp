#include "framework/window/PreTranslation.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "framework/window/CComboBox.h"
#include "framework/window/CDialog.h"
#include "framework/window/CEdit.h"
#include "framework/window/CListBox.h"
#include "tests/support/MessagePump.h"
#include "tests/unit/framework/FrameworkTestIds.h"
#include "tests/unit/framework/window/ProbeWindow.h"

namespace {

using kvtest::Probe;
using kvtest::ProbeWindow;

constexpr UINT g_last = WM_USER + 9;

// The loop of a container that knows nothing of us. It ends with the marker message.
void RunPlainLoop(HWND window) {
    ::PostMessageW(window, g_last, 0, 0);
    MSG message{};
    while (::GetMessageW(&message, nullptr, 0, 0) > 0 && message.message != g_last) {
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
    // Characters were put behind the marker.
    kvtest::PumpWaiting();
}

class PreTranslation : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(m_parent.Show());
        ASSERT_TRUE(m_edit.Create(WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL, {0, 0, 100, 20}, m_parent, 1038));
        m_edit.SetFocus();
        kvtest::PumpWaiting();
    }

    void PostKey(WPARAM key) { m_edit.PostMessage(WM_KEYDOWN, key, 1); }

    ProbeWindow m_parent;
    Probe<CEdit> m_edit;
};

TEST_F(PreTranslation, PlainLoop_WindowAndParentsSeeTheMessageInOrder) {
    std::vector<std::string> order;
    m_edit.preTranslate = [&](MSG& message) {
        if (message.message == WM_KEYDOWN) {
            EXPECT_EQ(message.hwnd, m_edit.m_hWnd);
            order.push_back("edit");
        }
        return FALSE;
    };
    m_parent.preTranslate = [&](MSG& message) {
        if (message.message == WM_KEYDOWN) {
            order.push_back("parent");
        }
        return FALSE;
    };
    PostKey('A');
    RunPlainLoop(m_parent);
    EXPECT_EQ(order, (std::vector<std::string>{"edit", "parent"}));
    EXPECT_EQ(m_edit.GetWindowText(), L"a");
}

TEST_F(PreTranslation, Swallowed_NeitherKeyNorCharacterArrives) {
    m_edit.preTranslate = [](MSG& message) { return message.message == WM_KEYDOWN && message.wParam == 'A'; };
    int asked = 0;
    m_parent.preTranslate = [&](MSG& message) {
        asked += message.message == WM_KEYDOWN && message.wParam == 'A';
        return FALSE;
    };
    PostKey('A');
    PostKey('B');
    RunPlainLoop(m_parent);
    EXPECT_EQ(m_edit.GetWindowText(), L"b");
    EXPECT_EQ(m_edit.CountOf(WM_KEYDOWN), 1);
    EXPECT_EQ(m_edit.CountOf(WM_CHAR), 1);
    EXPECT_EQ(asked, 0) << "a swallowed message ends the walk";
}

TEST_F(PreTranslation, ParentSwallows_ChildDoesNotGetIt) {
    m_parent.preTranslate = [](MSG& message) { return message.message == WM_KEYDOWN; };
    PostKey('A');
    RunPlainLoop(m_parent);
    EXPECT_EQ(m_edit.CountOf(WM_KEYDOWN), 0);
    EXPECT_TRUE(m_edit.GetWindowText().IsEmpty());
}

TEST_F(PreTranslation, PeekedAndLeftInTheQueue_IsNotTranslatedYet) {
    int seen = 0;
    m_edit.preTranslate = [&](MSG& message) {
        seen += message.message == WM_KEYDOWN;
        return FALSE;
    };
    PostKey('A');
    MSG message{};
    EXPECT_TRUE(::PeekMessageW(&message, m_edit, WM_KEYDOWN, WM_KEYDOWN, PM_NOREMOVE));
    EXPECT_EQ(seen, 0);
    EXPECT_TRUE(::PeekMessageW(&message, m_edit, WM_KEYDOWN, WM_KEYDOWN, PM_REMOVE));
    EXPECT_EQ(seen, 1);
}

TEST_F(PreTranslation, Handler_DestroysItsWindow_ParentIsStillAsked) {
    int asked = 0;
    m_edit.preTranslate = [&](MSG& message) {
        if (message.message == WM_KEYDOWN) {
            m_edit.DestroyWindow();
        }
        return FALSE;
    };
    m_parent.preTranslate = [&](MSG& message) {
        asked += message.message == WM_KEYDOWN;
        return FALSE;
    };
    PostKey('A');
    RunPlainLoop(m_parent);
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(m_edit.m_hWnd, nullptr);
}

TEST_F(PreTranslation, Handler_DestroysEverything_LoopGoesOn) {
    const HWND marker =
        ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr);
    m_edit.preTranslate = [&](MSG& message) {
        if (message.message == WM_KEYDOWN) {
            m_parent.DestroyWindow();
        }
        return FALSE;
    };
    PostKey('A');
    RunPlainLoop(marker);
    EXPECT_EQ(m_parent.m_hWnd, nullptr);
    EXPECT_FALSE(fw::IsPreTranslationActiveForTesting());
    ::DestroyWindow(marker);
}

TEST_F(PreTranslation, Handler_Throws_MessageGoesItsWay) {
    m_edit.preTranslate = [](MSG& message) -> BOOL {
        if (message.message == WM_KEYDOWN) {
            throw std::runtime_error("from a handler");
        }
        return FALSE;
    };
    PostKey('A');
    RunPlainLoop(m_parent);
    EXPECT_EQ(m_edit.GetWindowText(), L"a");
}

TEST_F(PreTranslation, Handler_RunsALoopOfItsOwn_InnerMessagesAreTranslatedToo) {
    std::vector<WPARAM> seen;
    m_edit.preTranslate = [&](MSG& message) {
        if (message.message == WM_KEYDOWN) {
            seen.push_back(message.wParam);
            if (message.wParam == 'A') {
                PostKey('B');
                MSG inner{};
                EXPECT_TRUE(::PeekMessageW(&inner, m_edit, WM_KEYDOWN, WM_KEYDOWN, PM_REMOVE));
                ::DispatchMessageW(&inner);
            }
        }
        return FALSE;
    };
    PostKey('A');
    RunPlainLoop(m_parent);
    EXPECT_EQ(seen, (std::vector<WPARAM>{'A', 'B'}));
    EXPECT_EQ(m_edit.CountOf(WM_KEYDOWN), 2);
    EXPECT_EQ(m_edit.GetWindowText(), L"a") << "the inner loop translates no characters";
}

TEST_F(PreTranslation, OwnedPopup_OwnerHasNoSay) {
    int asked = 0;
    m_parent.preTranslate = [&](MSG& message) {
        asked += message.message == WM_KEYDOWN;
        return FALSE;
    };
    ProbeWindow popup;
    ASSERT_TRUE(popup.Show(WS_POPUP, m_parent));
    popup.PostMessage(WM_KEYDOWN, 'A', 1);
    RunPlainLoop(m_parent);
    EXPECT_EQ(popup.CountOf(WM_KEYDOWN), 1);
    EXPECT_EQ(asked, 0);
}

TEST_F(PreTranslation, OpenDropDownList_SeesTheMouse) {
    Probe<CComboBox> combo;
    ASSERT_TRUE(combo.Create(WS_CHILD | WS_VISIBLE | CBS_DROPDOWNLIST, {0, 30, 100, 150}, m_parent, 2));
    combo.AddString(L"one");
    Probe<CListBox> list;
    ASSERT_TRUE(list.SubclassWindow(combo.GetListWindow()));
    int moves = 0;
    list.preTranslate = [&](MSG& message) {
        moves += message.message == WM_MOUSEMOVE;
        return FALSE;
    };
    combo.ShowDropDown();
    list.PostMessage(WM_MOUSEMOVE, 0, MAKELPARAM(3, 3));
    EXPECT_TRUE(kvtest::PumpUntil([&] { return moves > 0; }));
    combo.ShowDropDown(FALSE);
}

// A dialog of the system's making: its loop is not ours.
INT_PTR CALLBACK ForeignDialog(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    static Probe<CEdit>* s_edit = nullptr;
    switch (message) {
        case WM_INITDIALOG:
            s_edit = reinterpret_cast<Probe<CEdit>*>(lParam);
            EXPECT_TRUE(s_edit->SubclassDlgItem(IDC_TEST_EDIT, dialog));
            s_edit->PostMessage(WM_KEYDOWN, 'X', 1);
            s_edit->PostMessage(WM_KEYDOWN, 'Y', 1);
            return TRUE;
        case WM_COMMAND:
            if (HIWORD(wParam) == EN_CHANGE && s_edit->GetWindowTextLength() > 0) {
                s_edit->PostMessage(WM_KEYDOWN, VK_RETURN, 1);
            }
            if (LOWORD(wParam) == IDOK) {
                s_edit->GetWindowText().CompareNoCase(L"y") == 0 ? ::EndDialog(dialog, 1)
                                                                 : ::EndDialog(dialog, 2);
                return TRUE;
            }
            return FALSE;
        default:
            return FALSE;
    }
}

TEST_F(PreTranslation, InsideADialogBoxLoop_SwallowsKeys) {
    Probe<CEdit> edit;
    edit.preTranslate = [](MSG& message) { return message.message == WM_KEYDOWN && message.wParam == 'X'; };
    EXPECT_EQ(::DialogBoxParamW(nullptr, MAKEINTRESOURCEW(IDD_TEST), m_parent, ForeignDialog,
                                reinterpret_cast<LPARAM>(&edit)),
              1);
}

TEST_F(PreTranslation, InsideAMessageBoxLoop_SwallowsKeys) {
    bool sawBox = false;
    m_edit.preTranslate = [&](MSG& message) {
        if (message.message != WM_KEYDOWN) {
            return FALSE;
        }
        const HWND box = ::FindWindowW(L"#32770", L"Framework test box");
        sawBox = box != nullptr;
        ::PostMessageW(box, WM_COMMAND, IDYES, 0);
        return TRUE;
    };
    PostKey('A');
    EXPECT_EQ(::MessageBoxW(nullptr, L"Text", L"Framework test box", MB_YESNO), IDYES);
    EXPECT_TRUE(sawBox);
    kvtest::PumpWaiting();
    EXPECT_EQ(m_edit.CountOf(WM_KEYDOWN), 0);
    EXPECT_TRUE(m_edit.GetWindowText().IsEmpty());
}

TEST(PreTranslationHook, Thread_HasItWhileItHasWindows) {
    EXPECT_FALSE(fw::IsPreTranslationActiveForTesting());
    {
        ProbeWindow first;
        ProbeWindow second;
        ASSERT_TRUE(first.Show());
        EXPECT_TRUE(fw::IsPreTranslationActiveForTesting());
        ASSERT_TRUE(second.Show());
        first.DestroyWindow();
        EXPECT_TRUE(fw::IsPreTranslationActiveForTesting());
        bool elsewhere = true;
        std::thread([&] { elsewhere = fw::IsPreTranslationActiveForTesting(); }).join();
        EXPECT_FALSE(elsewhere);
    }
    EXPECT_FALSE(fw::IsPreTranslationActiveForTesting());
}

}  // namespace
