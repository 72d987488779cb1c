#include "framework/window/CDialog.h"

#include <gtest/gtest.h>

#include <functional>

#include "framework/window/CEdit.h"
#include "framework/window/MainWindow.h"
#include "tests/support/MessagePump.h"
#include "tests/support/WarmUp.h"
#include "tests/unit/framework/FrameworkTestIds.h"
#include "tests/unit/framework/window/ProbeWindow.h"

namespace {

using kvtest::Probe;
using kvtest::ProbeWindow;

class TestDialog : public CDialog {
public:
    using CDialog::CDialog;
    ~TestDialog() override { DestroyWindow(); }

    LRESULT OnApply(UINT, WPARAM, LPARAM, BOOL&) {
        ++applies;
        return 0;
    }

    static constexpr std::array s_messages{
        fw::OnCommand(IDC_TEST_APPLY, BN_CLICKED, &TestDialog::OnApply),
    };
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        LRESULT result = 0;
        return fw::DispatchMessage(s_messages, *this, message, wParam, lParam, result)
                   ? result
                   : CDialog::WindowProc(message, wParam, lParam);
    }
    void PressButton(int id) {
        const HWND button = GetDlgItem(id);
        ::PostMessageW(button, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(4, 4));
        ::PostMessageW(button, WM_LBUTTONUP, 0, MAKELPARAM(4, 4));
    }

    std::function<void()> whenOpen;
    CString text;
    bool checked = false;
    bool acceptsData = true;
    int applies = 0;

protected:
    BOOL OnInitDialog() override {
        EXPECT_EQ(CWnd::FromHandlePermanent(m_hWnd), this);
        const BOOL focus = CDialog::OnInitDialog();
        if (whenOpen) {
            whenOpen();
        }
        return focus;
    }
    bool ExchangeData(bool toMembers) override {
        if (toMembers) {
            text = GetDlgItemText(IDC_TEST_EDIT);
            checked = IsDlgButtonChecked(IDC_TEST_CHECK) == BST_CHECKED;
            return acceptsData;
        }
        SetDlgItemText(IDC_TEST_EDIT, text);
        CheckDlgButton(IDC_TEST_CHECK, checked ? BST_CHECKED : BST_UNCHECKED);
        return true;
    }
};

// The system keeps a brush and regions from the first pressed check box of a dialog on.
const kvtest::WarmUpStep g_firstDialog([] {
    TestDialog dialog;
    dialog.CreateModeless(IDD_TEST);
    kvtest::PumpWaiting();
    dialog.PressButton(IDC_TEST_CHECK);
    dialog.PressButton(IDC_TEST_APPLY);
    kvtest::PumpWaiting();
});

TEST(CDialogModal, OkPressed_ExchangesDataBothWays) {
    TestDialog dialog(IDD_TEST);
    dialog.text = L"before";
    dialog.checked = true;
    dialog.whenOpen = [&] {
        EXPECT_EQ(dialog.GetDlgItemText(IDC_TEST_EDIT), L"before");
        EXPECT_EQ(dialog.IsDlgButtonChecked(IDC_TEST_CHECK), static_cast<UINT>(BST_CHECKED));
        dialog.SetDlgItemText(IDC_TEST_EDIT, L"after");
        dialog.PressButton(IDC_TEST_CHECK);
        dialog.PressButton(IDOK);
    };
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(dialog.text, L"after");
    EXPECT_FALSE(dialog.checked);
    EXPECT_EQ(dialog.m_hWnd, nullptr);
}

TEST(CDialogModal, CancelPressed_ChangesNothing) {
    TestDialog dialog(IDD_TEST);
    dialog.text = L"before";
    dialog.whenOpen = [&] {
        dialog.SetDlgItemText(IDC_TEST_EDIT, L"after");
        dialog.PressButton(IDCANCEL);
    };
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_EQ(dialog.text, L"before");
}

TEST(CDialogModal, EnterAndEscape_EndIt) {
    for (const auto& [key, result] : {std::pair{VK_RETURN, IDOK}, std::pair{VK_ESCAPE, IDCANCEL}}) {
        TestDialog dialog(IDD_TEST);
        dialog.whenOpen = [&dialog, pressed = key] {
            ::PostMessageW(dialog.GetDlgItem(IDC_TEST_EDIT), WM_KEYDOWN, static_cast<WPARAM>(pressed), 1);
        };
        EXPECT_EQ(dialog.DoModal(), result);
    }
}

TEST(CDialogModal, CloseBox_Cancels) {
    TestDialog dialog(IDD_TEST);
    dialog.whenOpen = [&] { dialog.PostMessage(WM_SYSCOMMAND, SC_CLOSE); };
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
}

TEST(CDialogModal, OwnButton_ReachesItsHandlerAndKeepsItOpen) {
    TestDialog dialog(IDD_TEST);
    dialog.whenOpen = [&] {
        dialog.PressButton(IDC_TEST_APPLY);
        dialog.PressButton(IDC_TEST_APPLY);
        dialog.PressButton(IDOK);
    };
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(dialog.applies, 2);
}

TEST(CDialogModal, DataRefused_StaysOpen) {
    TestDialog dialog(IDD_TEST);
    dialog.acceptsData = false;
    dialog.whenOpen = [&] {
        dialog.PressButton(IDOK);
        dialog.PressButton(IDCANCEL);
    };
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
}

TEST(CDialogModal, NoSuchTemplate_FailsAndCanBeUsedAgain) {
    TestDialog absent(IDD_TEST_ABSENT);
    EXPECT_EQ(absent.DoModal(), -1);
    TestDialog none;
    EXPECT_EQ(none.DoModal(), -1);
    TestDialog dialog(IDD_TEST);
    dialog.whenOpen = [&] { dialog.EndDialog(77); };
    EXPECT_EQ(dialog.DoModal(), 77);
    EXPECT_EQ(dialog.DoModal(), 77) << "a dialog may be shown twice";
}

TEST(CDialogModal, MainWindow_IsItsOwnerAndIsDisabledMeanwhile) {
    ProbeWindow mainWindow;
    ASSERT_TRUE(mainWindow.Show());
    fw::SetMainWindow(mainWindow);
    TestDialog dialog(IDD_TEST);
    bool disabled = false;
    dialog.whenOpen = [&] {
        EXPECT_EQ(::GetWindow(dialog, GW_OWNER), mainWindow.m_hWnd);
        disabled = !mainWindow.IsWindowEnabled();
        dialog.PressButton(IDOK);
    };
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_TRUE(disabled);
    EXPECT_TRUE(mainWindow.IsWindowEnabled());
    fw::SetMainWindow(nullptr);
}

TEST(CDialogModal, SubclassedControl_SeesKeysBeforeTheDialog) {
    TestDialog dialog(IDD_TEST);
    Probe<CEdit> edit;
    int returns = 0;
    edit.preTranslate = [&](MSG& message) {
        const bool swallow = message.message == WM_KEYDOWN && message.wParam == VK_RETURN;
        returns += swallow;
        return swallow;
    };
    dialog.whenOpen = [&] {
        ASSERT_TRUE(edit.SubclassDlgItem(IDC_TEST_EDIT, dialog));
        edit.PostMessage(WM_KEYDOWN, VK_RETURN, 1);
        edit.PostMessage(WM_KEYDOWN, VK_ESCAPE, 1);
    };
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_EQ(returns, 1);
    EXPECT_EQ(edit.m_hWnd, nullptr);
}

TEST(CDialogModal, Items_NumbersAndState_RoundTrip) {
    TestDialog dialog(IDD_TEST);
    dialog.whenOpen = [&] {
        int value = 5;
        dialog.SetDlgItemInt(IDC_TEST_EDIT, -12);
        EXPECT_TRUE(dialog.GetDlgItemInt(IDC_TEST_EDIT, value));
        EXPECT_EQ(value, -12);
        dialog.SetDlgItemText(IDC_TEST_EDIT, L"twelve");
        EXPECT_FALSE(dialog.GetDlgItemInt(IDC_TEST_EDIT, value));
        EXPECT_EQ(value, -12);
        dialog.EnableDlgItem(IDC_TEST_APPLY, FALSE);
        EXPECT_FALSE(::IsWindowEnabled(dialog.GetDlgItem(IDC_TEST_APPLY)));
        dialog.PressButton(IDOK);
    };
    EXPECT_EQ(dialog.DoModal(), IDOK);
}

TEST(CDialogModeless, ButtonPressed_DestroysIt) {
    ProbeWindow parent;
    ASSERT_TRUE(parent.Show());
    TestDialog dialog;
    ASSERT_TRUE(dialog.CreateModeless(IDD_TEST, parent));
    EXPECT_FALSE(dialog.CreateModeless(IDD_TEST, parent)) << "it is open";
    EXPECT_TRUE(parent.IsWindowEnabled());
    dialog.PressButton(IDC_TEST_APPLY);
    EXPECT_TRUE(kvtest::PumpUntil([&] { return dialog.applies == 1; }));
    dialog.PressButton(IDOK);
    EXPECT_TRUE(kvtest::PumpUntil([&] { return dialog.m_hWnd == nullptr; }));
}

TEST(CDialogModeless, ObjectEnds_WindowEndsToo) {
    HWND handle = nullptr;
    {
        CDialog dialog;
        ASSERT_TRUE(dialog.CreateModeless(IDD_TEST));
        handle = dialog;
    }
    EXPECT_FALSE(::IsWindow(handle));
}

}  // namespace
