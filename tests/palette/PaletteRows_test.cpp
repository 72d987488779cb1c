#include "tests/palette/PaletteFixture.h"
#include "tests/support/MessagePump.h"

namespace {

using PaletteRows = kvtest::PaletteFixture;

TEST_F(PaletteRows, ClickTypeReturn_WritesToEveryObject) {
    const KvDbObjectId first = AddText(L"one", 0, 0);
    const KvDbObjectId second = AddText(L"two", 0, 10);
    Select({first, second});
    Click(ValuePoint(L"Contents"));
    ASSERT_NE(Pane().Active(), nullptr);
    EXPECT_EQ(CurrentName(), L"Contents");
    // The click has put a caret; what stands there is marked again by going home with Shift.
    Press(VK_END);
    Press(VK_HOME, true);
    TypeText(L"größer");
    Press(VK_RETURN);
    EXPECT_EQ(ContentOf(first), L"größer");
    EXPECT_EQ(ContentOf(second), L"größer");
    EXPECT_EQ(Window().Document().GetDatabase().Undo().UndoCount(), 3);  // two texts were added before
}

TEST_F(PaletteRows, ReturnWithAChange_GivesTheFocusBackToTheRows) {
    const KvDbObjectId text = AddText(L"one", 0, 0);
    Select({text});
    ASSERT_EQ(Pane().ActivateRow(Row(L"Contents")), S_OK);
    TypeText(L"two");
    EXPECT_TRUE(Pane().ControlKeepsFocus());
    Press(VK_RETURN);
    EXPECT_EQ(ContentOf(text), L"two");
    EXPECT_EQ(::GetFocus(), Pane().m_hWnd);
    EXPECT_EQ(Pane().Active(), nullptr);
    Press(VK_DOWN);
    EXPECT_EQ(CurrentName(), L"Style");
}

TEST_F(PaletteRows, ReturnWithoutAChange_LeavesTheFocusWhereTheUserHasBegun) {
    Select({AddText(L"one", 0, 0)});
    ASSERT_EQ(Pane().ActivateRow(Row(L"Contents")), S_OK);
    Press(VK_END);
    Press(VK_RETURN);
    EXPECT_TRUE(::IsChild(ControlWindow(L"Contents"), ::GetFocus()));
    EXPECT_TRUE(Pane().ControlKeepsFocus());
}

TEST_F(PaletteRows, Tab_CommitsAndEditsTheNextRow) {
    const KvDbObjectId text = AddText(L"one", 0, 0);
    Select({text});
    ASSERT_EQ(Pane().ActivateRow(Row(L"Contents")), S_OK);
    TypeText(L"two");
    Press(VK_TAB);
    EXPECT_EQ(ContentOf(text), L"two");
    EXPECT_EQ(CurrentName(), L"Style");
    EXPECT_TRUE(::IsChild(ControlWindow(L"Style"), ::GetFocus()));
    Press(VK_TAB, true);
    EXPECT_EQ(CurrentName(), L"Contents");
    EXPECT_TRUE(::IsChild(ControlWindow(L"Contents"), ::GetFocus()));
}

TEST_F(PaletteRows, TabThroughAllRows_ComesRound) {
    Select({AddText(L"one", 0, 0)});
    Pane().MakeCurrent(0);
    Pane().SetFocus();
    const std::size_t count = Pane().Rows().size();
    for (std::size_t i = 0; i < count; ++i) {
        Press(VK_TAB);
        if (Pane().Current() == i) {
            Press(VK_TAB);  // the first one went to the row's small button
        }
        EXPECT_EQ(Pane().Current(), (i + 1) % count);
    }
}

TEST_F(PaletteRows, Arrows_MoveWithoutEditing) {
    Select({AddText(L"one", 0, 0)});
    Pane().MakeCurrent(Row(L"Contents"));
    Pane().SetFocus();
    Press(VK_DOWN);
    EXPECT_EQ(CurrentName(), L"Style");
    EXPECT_EQ(Pane().Active(), nullptr);
    Press(VK_UP);
    Press(VK_UP);
    EXPECT_EQ(CurrentName(), L"Handle");
    Press(VK_HOME);
    EXPECT_EQ(Pane().Current(), 0u);
    Press(VK_RETURN);
    EXPECT_EQ(Pane().Active(), nullptr);  // the first row is painted by the palette
    Press(VK_DOWN);
    Press(VK_RETURN);
    EXPECT_NE(Pane().Active(), nullptr);
}

TEST_F(PaletteRows, LeftAndRight_CloseAndOpenTheCategory) {
    Select({AddText(L"one", 0, 0)});
    Pane().MakeCurrent(Row(L"Contents"));
    Pane().SetFocus();
    Press(VK_LEFT);
    EXPECT_FALSE(Pane().Layout().IsInSight(Row(L"Contents")));
    EXPECT_EQ(Pane().Rows()[Row(L"Contents")].control, nullptr);
    Press(VK_RIGHT);
    EXPECT_TRUE(Pane().Layout().IsInSight(Row(L"Contents")));
    EXPECT_NE(Pane().Rows()[Row(L"Contents")].control, nullptr);
}

TEST_F(PaletteRows, ClickOnAnotherRow_CommitsTheFirst) {
    const KvDbObjectId text = AddText(L"one", 0, 0);
    Select({text});
    ASSERT_EQ(Pane().ActivateRow(Row(L"Contents")), S_OK);
    TypeText(L"two");
    Click(ValuePoint(L"Style"));
    EXPECT_EQ(ContentOf(text), L"two");
    EXPECT_EQ(CurrentName(), L"Style");
}

TEST_F(PaletteRows, ClickOnAName_OnlyMakesTheRowCurrent) {
    Select({AddText(L"one", 0, 0)});
    Click(NamePoint(L"Contents"));
    EXPECT_EQ(CurrentName(), L"Contents");
    EXPECT_EQ(Pane().Active(), nullptr);
    EXPECT_EQ(::GetFocus(), Pane().m_hWnd);
}

TEST_F(PaletteRows, ChangeOfSelection_CommitsToTheOldObjects) {
    const KvDbObjectId first = AddText(L"one", 0, 0);
    const KvDbObjectId second = AddText(L"two", 0, 10);
    Select({first});
    ASSERT_EQ(Pane().ActivateRow(Row(L"Contents")), S_OK);
    TypeText(L"three");
    Select({second});
    EXPECT_EQ(ContentOf(first), L"three");
    EXPECT_EQ(ContentOf(second), L"two");
    EXPECT_EQ(CurrentName(), L"Contents");
}

TEST_F(PaletteRows, UndoAndRedoKeys_RefreshTheRows) {
    const KvDbObjectId text = AddText(L"one", 0, 0);
    Select({text});
    ASSERT_EQ(Pane().ActivateRow(Row(L"Contents")), S_OK);
    TypeText(L"two");
    Press(VK_RETURN);
    Pane().LeaveRow();
    Press('Z', false, true);
    EXPECT_EQ(ContentOf(text), L"one");
    Press('Y', false, true);
    EXPECT_EQ(ContentOf(text), L"two");
}

TEST_F(PaletteRows, UndoKeyInABox_BelongsToTheBox) {
    const KvDbObjectId text = AddText(L"one", 0, 0);
    Select({text});
    ASSERT_EQ(Pane().ActivateRow(Row(L"Contents")), S_OK);
    const int steps = Window().Document().GetDatabase().Undo().UndoCount();
    TypeText(L"two");
    Press('Z', false, true);
    EXPECT_EQ(Window().Document().GetDatabase().Undo().UndoCount(), steps);
}

TEST_F(PaletteRows, UndoOfTheObjectItself_EmptiesThePalette) {
    Select({AddText(L"one", 0, 0)});
    EXPECT_FALSE(Pane().Rows().empty());
    ASSERT_TRUE(Window().Undo(1));
    EXPECT_TRUE(Pane().Rows().empty());
    ASSERT_TRUE(Window().Redo(1));
}

TEST_F(PaletteRows, OnlyRowsInSight_HoldControls) {
    Select({AddText(L"one", 0, 0)});
    Window().SetWindowPos(nullptr, 0, 0, 700, 320, SWP_NOZORDER);
    kvtest::PumpWaiting();
    std::size_t withControl = 0;
    for (std::size_t i = 0; i < Pane().Rows().size(); ++i) {
        const bool hasControl = Pane().Rows()[i].control != nullptr;
        withControl += hasControl ? 1u : 0u;
        EXPECT_TRUE(!hasControl || Pane().Layout().IsInSight(i)) << i;
    }
    EXPECT_GT(withControl, 0u);
    EXPECT_FALSE(Pane().Layout().IsInSight(Row(L"Access code")));
    ASSERT_EQ(Pane().ActivateRow(Row(L"Access code")), S_OK);
    EXPECT_TRUE(Pane().Layout().IsInSight(Row(L"Access code")));
}

TEST_F(PaletteRows, Wheel_ScrollsTheRows) {
    Select({AddText(L"one", 0, 0)});
    Window().SetWindowPos(nullptr, 0, 0, 700, 320, SWP_NOZORDER);
    kvtest::PumpWaiting();
    TurnWheel(NamePoint(L"Layer"), -1);
    EXPECT_GT(Pane().Layout().ScrollOffset(), 0);
    TurnWheel(NamePoint(L"Description"), 5);
    EXPECT_EQ(Pane().Layout().ScrollOffset(), 0);
}

TEST_F(PaletteRows, ManyObjects_AreShownAtOnce) {
    std::vector<KvDbObjectId> ids(2000);
    double y = 0;
    for (KvDbObjectId& id : ids) {
        id = AddText(L"same", 0, ++y);
    }
    const ULONGLONG start = ::GetTickCount64();
    Select(ids);
    EXPECT_LT(::GetTickCount64() - start, 2000u);
    EXPECT_EQ(Window().Palette().Title(), L"Text");
}

TEST_F(PaletteRows, ClosingTheWindowInTheMiddleOfAnEdit_EndsTheProgram) {
    Select({AddText(L"one", 0, 0)});
    ASSERT_EQ(Pane().ActivateRow(Row(L"Contents")), S_OK);
    TypeText(L"two");
    Window().PostMessage(WM_CLOSE);
    EXPECT_TRUE(kvtest::PumpUntil([this] { return !Window().IsWindow(); }));
    EXPECT_EQ(Pane().Active(), nullptr);
}

}  // namespace
