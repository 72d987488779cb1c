#include "framework/base/MessageBox.h"

#include <gtest/gtest.h>

#include <string>

namespace {

std::wstring g_text;
std::wstring g_caption;
UINT g_flags = 0;
HWND g_owner = nullptr;

int AnswerNo(HWND owner, const wchar_t* text, const wchar_t* caption, UINT flags) {
    g_owner = owner;
    g_text = text;
    g_caption = caption;
    g_flags = flags;
    return IDNO;
}

class MessageBoxHookTest : public testing::Test {
protected:
    void SetUp() override { m_earlier = fw::SetMessageBoxHook(AnswerNo); }
    void TearDown() override { fw::SetMessageBoxHook(m_earlier); }

    fw::MessageBoxHook m_earlier = nullptr;
};

TEST_F(MessageBoxHookTest, ShowMessageBox_HookSet_AnswersInItsPlace) {
    const HWND owner = ::GetDesktopWindow();
    EXPECT_EQ(fw::ShowMessageBox(owner, L"Delete?", L"Layers", MB_YESNO | MB_ICONWARNING), IDNO);
    EXPECT_EQ(g_owner, owner);
    EXPECT_EQ(g_text, L"Delete?");
    EXPECT_EQ(g_caption, L"Layers");
    EXPECT_EQ(g_flags, static_cast<UINT>(MB_YESNO | MB_ICONWARNING));
}

TEST_F(MessageBoxHookTest, AfxMessageBox_HookSet_CarriesTheProgramsName) {
    EXPECT_EQ(AfxMessageBox(L"Not loaded", MB_ICONSTOP), IDNO);
    EXPECT_EQ(g_text, L"Not loaded");
    EXPECT_EQ(g_caption, L"unit_framework");
    EXPECT_EQ(g_flags, static_cast<UINT>(MB_ICONSTOP));
}

TEST_F(MessageBoxHookTest, SetMessageBoxHook_Exchange_ReturnsTheEarlierOne) {
    EXPECT_EQ(fw::SetMessageBoxHook(nullptr), AnswerNo);
    EXPECT_EQ(fw::SetMessageBoxHook(AnswerNo), nullptr);
}

}  // namespace
