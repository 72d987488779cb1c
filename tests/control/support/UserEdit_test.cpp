#include "tests/control/support/UserEdit.h"

#include <gtest/gtest.h>

#include "framework/window/CWnd.h"
#include "tests/support/MessagePump.h"

namespace {

const fw::WindowClass s_rowClass{.name = L"KvTestRow"};

// Notes what a list tells its parent.
class ListParent : public CWnd {
public:
    std::vector<WORD> codes;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_COMMAND) {
            codes.push_back(HIWORD(wParam));
        }
        return CWnd::WindowProc(message, wParam, lParam);
    }
};

class UserEdit : public ::testing::Test {
protected:
    UserEdit() {
        row.Create(s_rowClass, L"", WS_POPUP | WS_VISIBLE, {10, 10, 200, 40}, nullptr);
        ::SetForegroundWindow(row);
    }
    ~UserEdit() override {
        row.DestroyWindow();
        kvtest::PumpWaiting();
    }
    HWND MakeChild(const wchar_t* className, DWORD style) {
        const HWND child = ::CreateWindowExW(0, className, L"", WS_CHILD | WS_VISIBLE | style, 0, 0, 100, 200,
                                             row, nullptr, nullptr, nullptr);
        ::SetFocus(child);
        return child;
    }

    ListParent row;
};

TEST_F(UserEdit, Types_ReplacesTheTextOfTheBoxInFocus) {
    const HWND box = MakeChild(L"EDIT", 0);
    ::SetWindowTextW(box, L"before");
    EXPECT_TRUE(kvtest::Types(L"after").Enter(row));
    EXPECT_TRUE(kvtest::Types(L"after").IsShownIn(box));
    EXPECT_FALSE(kvtest::Types(L"before").IsShownIn(box));
}

TEST_F(UserEdit, Chooses_ReturnAcceptsTheEntry) {
    const HWND list = MakeChild(L"COMBOBOX", CBS_DROPDOWNLIST);
    for (const wchar_t* entry : {L"one", L"two", L"three"}) {
        ::SendMessageW(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(entry));
    }
    EXPECT_FALSE(kvtest::Chooses(3).Enter(row)) << "there is no such entry";
    EXPECT_TRUE(kvtest::Chooses(2).Enter(row));
    row.codes.clear();
    kvtest::PressInRow(row, VK_RETURN);
    EXPECT_EQ(std::ranges::count(row.codes, CBN_SELENDOK), 1);
    EXPECT_TRUE(kvtest::Chooses(2).IsShownIn(list));
    EXPECT_FALSE(kvtest::Chooses(1).IsShownIn(list));
}

TEST_F(UserEdit, NothingInFocus_EntersNothing) {
    ::SetFocus(row);
    EXPECT_EQ(kvtest::ChildInFocus(row), nullptr);
    EXPECT_FALSE(kvtest::Types(L"after").Enter(row));
}

}  // namespace
