#include "refhost/ui/MessageBoxes.h"

#include <gtest/gtest.h>

#include "refhost/testing/Answers.h"
#include "tests/support/ExpectCalls.h"

namespace {

using kvhost::Answers;
using kvhost::DefaultButtonOf;

class MessageBoxesTest : public ::testing::Test {
protected:
    ~MessageBoxesTest() override { Answers::Reset(); }
    kvhost::MessageBoxes m_boxes;
};

TEST_F(MessageBoxesTest, NobodyThere_TakesTheDefaultButton) {
    kvhost::Journal journal;
    EXPECT_EQ(fw::ShowMessageBox(nullptr, L"Refused.", nullptr, MB_ICONWARNING), IDOK);
    EXPECT_EQ(fw::ShowMessageBox(nullptr, L"Sure?", nullptr, MB_YESNO | MB_DEFBUTTON2), IDNO);
    EXPECT_EQ(AfxMessageBox(L"Stop."), IDOK);
    EXPECT_CALLS(journal, "MessageBox Refused.", "MessageBox Sure?", "MessageBox Stop.");
}

TEST_F(MessageBoxesTest, PreparedAnswers_AreTakenInOrder) {
    Answers::QueueButton(IDYES);
    Answers::QueueFromCommandLine(L"no");
    EXPECT_EQ(fw::ShowMessageBox(nullptr, L"1", nullptr, MB_YESNO), IDYES);
    EXPECT_EQ(fw::ShowMessageBox(nullptr, L"2", nullptr, MB_YESNO), IDNO);
    EXPECT_EQ(fw::ShowMessageBox(nullptr, nullptr, nullptr, MB_YESNO), IDYES);
    EXPECT_EQ(Answers::TakeShown(), (std::vector<std::wstring>{L"1", L"2", L""}));
}

void CALLBACK PressNo(HWND, UINT, UINT_PTR timer, DWORD) {
    if (HWND const box = ::FindWindowW(L"#32770", L"Caption")) {
        ::KillTimer(nullptr, timer);
        ::SendDlgItemMessageW(box, IDNO, BM_CLICK, 0, 0);
    }
}

TEST_F(MessageBoxesTest, PersonThere_SeesTheSystemsBox) {
    Answers::SetInteractive(true);
    ::SetTimer(nullptr, 0, 10, PressNo);
    EXPECT_EQ(fw::ShowMessageBox(nullptr, L"Sure?", L"Caption", MB_YESNO), IDNO);
}

int AnswerOfAnother(HWND, const wchar_t*, const wchar_t*, UINT) {
    return IDIGNORE;
}

TEST(MessageBoxes, EndOfScope_BringsTheFormerAnswererBack) {
    const fw::MessageBoxHook before = fw::SetMessageBoxHook(AnswerOfAnother);
    {
        const kvhost::MessageBoxes boxes;
        EXPECT_EQ(fw::ShowMessageBox(nullptr, L"", nullptr, MB_OK), IDOK);
    }
    EXPECT_EQ(fw::ShowMessageBox(nullptr, L"", nullptr, MB_OK), IDIGNORE);
    fw::SetMessageBoxHook(before);
    Answers::Reset();
}

TEST(MessageBoxes, DefaultButtons) {
    EXPECT_EQ(DefaultButtonOf(MB_OK), IDOK);
    EXPECT_EQ(DefaultButtonOf(MB_OKCANCEL | MB_DEFBUTTON2), IDCANCEL);
    EXPECT_EQ(DefaultButtonOf(MB_ABORTRETRYIGNORE | MB_DEFBUTTON3), IDIGNORE);
    EXPECT_EQ(DefaultButtonOf(MB_YESNOCANCEL), IDYES);
    EXPECT_EQ(DefaultButtonOf(MB_YESNO | MB_DEFBUTTON3), IDYES);
    EXPECT_EQ(DefaultButtonOf(MB_RETRYCANCEL | MB_ICONERROR), IDRETRY);
    EXPECT_EQ(DefaultButtonOf(0xF), IDOK);
}

}  // namespace
