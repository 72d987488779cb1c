#include <gtest/gtest.h>

#include "framework/window/Geometry.h"
#include "host_sdk/LzTaskDialog.h"
#include "refhost/testing/Answers.h"
#include "refhost/testing/Faults.h"
#include "refhost/ui/ResourceIds.h"
#include "refhost/ui/TaskDialogDescription.h"
#include "tests/support/ExpectCalls.h"
#include "tests/support/WarmUp.h"

namespace {

using kvhost::Answers;
using kvhost::ParseTaskDialog;
using kvhost::TaskDialogDescription;

constexpr wchar_t c_resource[] = L"/KvTaskDialogs;component/TaskDialogs.xaml";
constexpr wchar_t c_cannotModify[] = L"ZRB.KvPEXCtl.CannotModifyProperty";

TEST(TaskDialogDescription, Parse_AllFields) {
    const auto dialog = ParseTaskDialog(
        "<TaskDialogs><TaskDialog Id='other'><Button Id='OK'/></TaskDialog>"
        "<TaskDialog Id='d' Title='T &amp; t' Icon='Error' MainInstruction='M' Content='gr\xC3\xB6\xC3\x9F"
        "e'><Button Id='Yes' Text='Ja'/><Button Id='No' Text='Nein' IsDefault='true'/></TaskDialog>"
        "</TaskDialogs>",
        L"d");
    ASSERT_TRUE(dialog);
    EXPECT_EQ(dialog->title, L"T & t");
    EXPECT_EQ(dialog->instruction, L"M");
    EXPECT_EQ(dialog->content, L"gr\u00F6\u00DFe");
    EXPECT_EQ(dialog->icon, TaskDialogDescription::Icon::Error);
    ASSERT_EQ(dialog->buttons.size(), 2U);
    EXPECT_EQ(dialog->buttons[0].id, IDYES);
    EXPECT_EQ(dialog->buttons[0].text, L"Ja");
    EXPECT_EQ(dialog->defaultButton, IDNO);
}

TEST(TaskDialogDescription, Parse_FirstButtonIsTheDefaultOne) {
    const auto dialog = ParseTaskDialog(
        "<TaskDialogs><TaskDialog Id='d'><Button Id='Retry'/><Button "
        "Id='Cancel'/></TaskDialog></TaskDialogs>",
        L"d");
    ASSERT_TRUE(dialog);
    EXPECT_EQ(dialog->defaultButton, IDRETRY);
    EXPECT_EQ(dialog->icon, TaskDialogDescription::Icon::None);
}

TEST(TaskDialogDescription, Parse_WhatIsNoDialog) {
    EXPECT_FALSE(ParseTaskDialog("", L"d"));
    EXPECT_FALSE(ParseTaskDialog("no xml", L"d"));
    EXPECT_FALSE(ParseTaskDialog("<TaskDialogs><TaskDialog Id='d'>", L"d"));
    EXPECT_FALSE(ParseTaskDialog("<Other/>", L"d"));
    EXPECT_FALSE(ParseTaskDialog("<TaskDialogs/>", L"d"));
    EXPECT_FALSE(ParseTaskDialog("<TaskDialogs><TaskDialog Id='d'/></TaskDialogs>", L"d"));
    EXPECT_FALSE(ParseTaskDialog(
        "<TaskDialogs><TaskDialog Id='d'><Button Id='Oops'/></TaskDialog></TaskDialogs>", L"d"));
    EXPECT_FALSE(ParseTaskDialog(
        "<TaskDialogs><TaskDialog Id='d' Icon='Star'><Button Id='OK'/></TaskDialog></TaskDialogs>", L"d"));
    EXPECT_FALSE(ParseTaskDialog(
        "<TaskDialogs><TaskDialog Id='d'><Button Id='OK'/></TaskDialog></TaskDialogs>", L"D"));
}

TEST(TaskDialogDescription, Resource_HoldsTheDialogsOfTheModule) {
    const std::string_view text = kvhost::FindTaskDialogResource(c_resource);
    ASSERT_FALSE(text.empty());
    for (const wchar_t* const id : {c_cannotModify, L"ZRB.KvPEXCtl.PatternNameNotFound"}) {
        const auto dialog = ParseTaskDialog(text, id);
        ASSERT_TRUE(dialog) << kvtest::ToUtf8(id);
        EXPECT_FALSE(dialog->title.empty());
        EXPECT_FALSE(dialog->instruction.empty());
        EXPECT_FALSE(dialog->content.empty());
        EXPECT_NE(dialog->icon, TaskDialogDescription::Icon::None);
    }
    EXPECT_TRUE(kvhost::FindTaskDialogResource(L"/Other;component/TaskDialogs.xaml").empty());
    EXPECT_TRUE(kvhost::FindTaskDialogResource(L"KvTaskDialogs;component/TaskDialogs.xaml").empty());
    EXPECT_TRUE(kvhost::FindTaskDialogResource(L"").empty());
}

class LzTaskDialogTest : public ::testing::Test {
protected:
    ~LzTaskDialogTest() override {
        Answers::Reset();
        kvhost::Faults::Reset();
    }
};

TEST_F(LzTaskDialogTest, Load_UnknownIdOrResource_GivesFalse) {
    LzTaskDialog dialog;
    EXPECT_FALSE(dialog.LoadFromFile(c_resource, L"ZRB.KvPEXCtl.Unknown"));
    EXPECT_FALSE(dialog.LoadFromFile(L"/Nothing.xaml", c_cannotModify));
    EXPECT_FALSE(dialog.LoadFromFile(nullptr, c_cannotModify));
    EXPECT_FALSE(dialog.LoadFromFile(c_resource, nullptr));
    EXPECT_EQ(dialog.ShowDialog(nullptr), IDCANCEL);
}

TEST_F(LzTaskDialogTest, FailedLoad_ForgetsTheDialogLoadedBefore) {
    LzTaskDialog dialog;
    EXPECT_TRUE(dialog.LoadFromFile(c_resource, c_cannotModify));
    EXPECT_FALSE(dialog.LoadFromFile(c_resource, L"unknown"));
    EXPECT_EQ(dialog.ShowDialog(nullptr), IDCANCEL);
}

TEST_F(LzTaskDialogTest, NobodyThere_TakesTheDefaultButtonAtOnce) {
    LzTaskDialog dialog;
    kvhost::Journal journal;
    EXPECT_TRUE(dialog.LoadFromFile(c_resource, c_cannotModify));
    EXPECT_EQ(dialog.ShowDialog(nullptr), IDOK);
    EXPECT_CALLS(journal,
                 "LoadFromFile /KvTaskDialogs;component/TaskDialogs.xaml ZRB.KvPEXCtl.CannotModifyProperty",
                 "LzTaskDialog ZRB.KvPEXCtl.CannotModifyProperty null");
    EXPECT_EQ(journal.Entries()[1].result, L"1");
}

TEST_F(LzTaskDialogTest, PreparedAnswer_IsTaken) {
    LzTaskDialog dialog;
    EXPECT_TRUE(dialog.LoadFromFile(c_resource, c_cannotModify));
    Answers::QueueButton(IDCLOSE);
    EXPECT_EQ(dialog.ShowDialog(nullptr), IDCLOSE);
    EXPECT_EQ(Answers::Waiting(), 0U);
}

TEST_F(LzTaskDialogTest, Fault_FailsLoad) {
    kvhost::Faults::FailService(L"LoadFromFile", 1);
    LzTaskDialog dialog;
    EXPECT_FALSE(dialog.LoadFromFile(c_resource, c_cannotModify));
}

HWND OpenDialog() {
    return ::FindWindowW(L"#32770", L"Properties");
}

// What the tests of the open window saw, as the timer's function has no state of its own.
struct Seen {
    std::wstring instruction;
    bool textsApart = false;
    bool hasIcon = false;
} g_seen;

CRect WindowRectOf(HWND dialog, int id) {
    CRect bounds;
    ::GetWindowRect(::GetDlgItem(dialog, id), &bounds);
    return bounds;
}

void CALLBACK LookAndPressOk(HWND, UINT, UINT_PTR timer, DWORD) {
    HWND const dialog = OpenDialog();
    if (dialog == nullptr) {
        return;
    }
    ::KillTimer(nullptr, timer);
    wchar_t text[200] = L"";
    ::GetDlgItemTextW(dialog, KVHOST_MESSAGE_INSTRUCTION, text, 200);
    g_seen.instruction = text;
    g_seen.textsApart = WindowRectOf(dialog, KVHOST_MESSAGE_INSTRUCTION).bottom <=
                            WindowRectOf(dialog, KVHOST_MESSAGE_CONTENT).top &&
                        WindowRectOf(dialog, KVHOST_MESSAGE_CONTENT).bottom <= WindowRectOf(dialog, IDOK).top;
    g_seen.hasIcon = ::SendDlgItemMessageW(dialog, KVHOST_MESSAGE_ICON, STM_GETICON, 0, 0) != 0;
    ::SendDlgItemMessageW(dialog, IDOK, BM_CLICK, 0, 0);
}

void CALLBACK PressEscape(HWND, UINT, UINT_PTR timer, DWORD) {
    if (HWND const dialog = OpenDialog()) {
        ::KillTimer(nullptr, timer);
        ::PostMessageW(::GetFocus(), WM_KEYDOWN, VK_ESCAPE, 0);
    }
}

// The system keeps its icons and the parts of dialog frames once it has drawn them.
const kvtest::WarmUpStep g_firstDialog([] {
    for (const TIMERPROC answer : {LookAndPressOk, PressEscape}) {
        Answers::SetInteractive(true);
        LzTaskDialog dialog;
        if (dialog.LoadFromFile(c_resource, c_cannotModify)) {
            ::SetTimer(nullptr, 0, 10, answer);
            dialog.ShowDialog(nullptr);
        }
        Answers::Reset();
    }
});

TEST_F(LzTaskDialogTest, PersonThere_SeesTheWindowAndPressesTheButton) {
    Answers::SetInteractive(true);
    LzTaskDialog dialog;
    ASSERT_TRUE(dialog.LoadFromFile(c_resource, c_cannotModify));
    g_seen = {};
    ::SetTimer(nullptr, 0, 10, LookAndPressOk);
    EXPECT_EQ(dialog.ShowDialog(nullptr), IDOK);
    EXPECT_EQ(g_seen.instruction, L"The property can't be changed now.");
    EXPECT_TRUE(g_seen.textsApart);
    EXPECT_TRUE(g_seen.hasIcon);
}

TEST_F(LzTaskDialogTest, PersonThere_EscapeCancels) {
    Answers::SetInteractive(true);
    LzTaskDialog dialog;
    ASSERT_TRUE(dialog.LoadFromFile(c_resource, c_cannotModify));
    ::SetTimer(nullptr, 0, 10, PressEscape);
    EXPECT_EQ(dialog.ShowDialog(nullptr), IDCANCEL);
}

}  // namespace
