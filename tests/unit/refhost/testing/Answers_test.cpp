#include "refhost/testing/Answers.h"

#include <gtest/gtest.h>

#include "framework/base/WindowsApi.h"

namespace {

using kvhost::Answers;

class AnswersTest : public ::testing::Test {
protected:
    ~AnswersTest() override { Answers::Reset(); }
};

TEST_F(AnswersTest, Empty_GivesTheDefaultUnlessAPersonIsThere) {
    EXPECT_EQ(Answers::Take({IDRETRY, {}})->button, IDRETRY);
    Answers::SetInteractive(true);
    EXPECT_TRUE(Answers::IsInteractive());
    EXPECT_FALSE(Answers::Take({IDRETRY, {}}));
}

TEST_F(AnswersTest, Queued_ComeInOrderAlsoWithAPerson) {
    Answers::SetInteractive(true);
    Answers::QueueText(L"text");
    Answers::QueueButton(IDCANCEL);
    EXPECT_EQ(Answers::Waiting(), 2U);
    const auto first = Answers::Take({});
    ASSERT_TRUE(first && first->text);
    EXPECT_EQ(first->button, IDOK);
    EXPECT_EQ(*first->text, L"text");
    EXPECT_EQ(Answers::Take({})->button, IDCANCEL);
    EXPECT_FALSE(Answers::Take({}));
}

TEST_F(AnswersTest, FromCommandLine_ButtonNameOrText) {
    Answers::QueueFromCommandLine(L"cancel");
    Answers::QueueFromCommandLine(L"cancelled");
    const auto button = Answers::Take({});
    EXPECT_EQ(button->button, IDCANCEL);
    EXPECT_FALSE(button->text);
    EXPECT_EQ(*Answers::Take({})->text, L"cancelled");
}

TEST_F(AnswersTest, Reset_ForgetsAll) {
    Answers::SetInteractive(true);
    Answers::QueueButton(IDOK);
    Answers::NoteShown(L"text");
    Answers::Reset();
    EXPECT_EQ(Answers::Waiting(), 0U);
    EXPECT_FALSE(Answers::IsInteractive());
    EXPECT_TRUE(Answers::TakeShown().empty());
}

}  // namespace
