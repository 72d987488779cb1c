#include "refhost/testing/Answers.h"
#include "tests/control/support/RowContainer.h"
#include "tests/control/support/UserInput.h"

namespace {

using kvtest::CallLines;
using kvtest::CallsOnly;

class RowEdit : public kvtest::RowContainer {
protected:
    ~RowEdit() override { kvhost::Answers::Reset(); }

    std::wstring Stored(std::size_t index) const {
        return std::wstring(fw::Variant::ViewString(objects[index]->At(c_property).Get()));
    }
    /// What matters of an edit: reads, writes, brackets and events.
    CallLines EditCalls() const {
        return CallsOnly(journal, {"Invoke", "On", "undoGroup", "kvedSendModeless", "SetUnspecified",
                                   "TaskDialog", "LzTaskDialog"});
    }
    void AllowUnspecified(std::size_t index) {
        objects[index]->interfaces |= kvhost::OffersUnspecified;
        auto& value = objects[index]->At(c_property);
        value.unspecifiedAllowed = true;
        value.unspecifiedText = L"none given";
    }
};

TEST_F(RowEdit, TypeAndReturn_WritesAllObjectsInOneBracket) {
    CreateTextRow({L"alpha", L"alpha", L"alpha"});
    UIActivate();
    kvtest::TypeText(L"beta");
    EXPECT_NO_CALLS(journal);
    kvtest::PressKey(VK_RETURN);
    EXPECT_CALLS(EditCalls(), "kvedSendModelessOperationStart ZRB_CHGPROP", "undoGroup 8 Property change",
                 "OnBeginPropertyUpdate", "Invoke A put 5 \"beta\"", "Invoke B put 5 \"beta\"",
                 "Invoke C put 5 \"beta\"", "undoGroup 16 null", "kvedSendModelessOperationEnded ZRB_CHGPROP",
                 "OnEndPropertyUpdate", "Invoke A get 5", "Invoke B get 5", "Invoke C get 5",
                 "OnKeyDown 13 1835009");
    EXPECT_EQ(BoxText(), L"beta");
}

TEST_F(RowEdit, TypeAndTab_WritesThenLeavesToThePalette) {
    CreateTextRow({L"alpha"});
    UIActivate();
    kvtest::TypeText(L"beta");
    kvtest::PressKey(VK_TAB);
    EXPECT_EQ(Stored(0), L"beta");
    EXPECT_CALLS(Events(), "OnBeginPropertyUpdate", "OnEndPropertyUpdate", "OnKeyDown 9 983041");
}

TEST_F(RowEdit, ReturnUnchanged_FiresTheKeyAndWritesNothing) {
    CreateTextRow({L"alpha"});
    UIActivate();
    kvtest::PressKey(VK_RETURN);
    EXPECT_CALLS(journal, "OnKeyDown 13 1835009");
}

TEST_F(RowEdit, TextThatDiffersInCase_IsWritten) {
    CreateTextRow({L"alpha", L"ALPHA"});
    UIActivate();
    EXPECT_EQ(BoxText(), L"alpha") << "texts that differ in case share one value";
    kvtest::TypeText(L"Alpha");
    kvtest::PressKey(VK_RETURN);
    EXPECT_EQ(Stored(0), L"Alpha");
    EXPECT_EQ(Stored(1), L"Alpha");
}

TEST_F(RowEdit, Escape_BringsTheStoredValueBackWithAllSelected) {
    CreateTextRow({L"alpha"});
    UIActivate();
    kvtest::TypeText(L"beta");
    objects[0]->At(c_property).Set(L"changed meanwhile");
    kvtest::PressKey(VK_ESCAPE);
    EXPECT_EQ(BoxText(), L"changed meanwhile");
    DWORD start = 1;
    DWORD end = 0;
    ::SendMessageW(Box(), EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    EXPECT_EQ(start, 0u);
    EXPECT_EQ(end, 17u);
    EXPECT_EQ(Events(), CallLines{});
}

TEST_F(RowEdit, FocusLossAfterAClick_Commits) {
    CreateTextRow({L"alpha"});
    kvtest::ClickAt(Row(), {4, 4});
    kvtest::PressKey(VK_END);
    kvtest::TypeText(L"bet");
    Clear();
    elsewhere.SetFocus();
    kvtest::PumpWaiting();
    EXPECT_NE(Stored(0), L"alpha");
    EXPECT_CALLS(Events(), "OnBeginPropertyUpdate", "OnEndPropertyUpdate");
}

TEST_F(RowEdit, ObjectsDisagree_RowShowsTheVariesTextAndOneEditMakesThemAgree) {
    CreateTextRow({L"alpha", L"beta"});
    UIActivate();
    EXPECT_NE(BoxText(), L"alpha");
    EXPECT_FALSE(BoxText().empty());
    kvtest::TypeText(L"gamma");
    kvtest::PressKey(VK_RETURN);
    EXPECT_EQ(Stored(0), L"gamma");
    EXPECT_EQ(Stored(1), L"gamma");
    EXPECT_EQ(BoxText(), L"gamma");
}

TEST_F(RowEdit, EveryObjectRefuses_TheOldTextComesBack) {
    CreateTextRow({L"alpha"});
    objects[0]->At(c_property).putResult = E_ACCESSDENIED;
    UIActivate();
    kvtest::TypeText(L"beta");
    kvtest::PressKey(VK_RETURN);
    EXPECT_EQ(BoxText(), L"alpha");
    EXPECT_CALLS(Events(), "OnBeginPropertyUpdate", "OnEndPropertyUpdate", "OnKeyDown 13 1835009");
}

TEST_F(RowEdit, HostDrags_NothingIsWrittenAndTheOldTextComesBack) {
    CreateTextRow({L"alpha"});
    objects[0]->interfaces = kvhost::OffersIdentity;
    objects[0]->objectId = document->GetDatabase().ModelSpaceId();
    UIActivate();
    kvtest::TypeText(L"beta");
    host->Editor().SetDragging(true);
    kvtest::PressKey(VK_RETURN);
    host->Editor().SetDragging(false);
    EXPECT_EQ(BoxText(), L"alpha");
    EXPECT_EQ(CallsOnly(journal, {"Invoke A put"}), CallLines{});
    EXPECT_CALLS(Events(), "OnKeyDown 13 1835009");
}

TEST_F(RowEdit, UnspecifiedTextTypedInAnyCase_MakesTheObjectsUnspecified) {
    Create(CLSID_KvPePropertyEditorText);
    MakeObject(L"A", L"alpha");
    AllowUnspecified(0);
    ASSERT_EQ(InitEdit({objects[0].Get()}), S_OK);
    ASSERT_EQ(DoVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
    UIActivate();
    kvtest::TypeText(L"NONE given");
    kvtest::PressKey(VK_RETURN);
    EXPECT_EQ(CallsOnly(journal, {"Invoke A put"}), CallLines{});
    EXPECT_EQ(CallsOnly(journal, {"SetUnspecified"}).size(), 1u);
    EXPECT_TRUE(objects[0]->At(c_property).unspecified);
    EXPECT_EQ(BoxText(), L"none given");
}

TEST_F(RowEdit, ClickOnTheHint_MakesTheObjectsUnspecified) {
    Create(CLSID_KvPePropertyEditorText);
    MakeObject(L"A", L"alpha");
    AllowUnspecified(0);
    ASSERT_EQ(InitEdit({objects[0].Get()}), S_OK);
    ASSERT_EQ(DoVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
    UIActivate();
    const HWND hint = ::FindWindowW(L"KvPeUnspecifiedHint", nullptr);
    ASSERT_TRUE(::IsWindowVisible(hint));
    kvtest::ClickAt(hint, {5, 5});
    EXPECT_TRUE(objects[0]->At(c_property).unspecified);
    EXPECT_FALSE(::IsWindowVisible(hint));
}

TEST_F(RowEdit, PlainValueOverAnUnspecifiedOne_SwitchesTheStateOffFirst) {
    Create(CLSID_KvPePropertyEditorText);
    MakeObject(L"A", L"alpha");
    AllowUnspecified(0);
    objects[0]->At(c_property).unspecified = true;
    ASSERT_EQ(InitEdit({objects[0].Get()}), S_OK);
    ASSERT_EQ(DoVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
    UIActivate();
    EXPECT_EQ(BoxText(), L"none given");
    kvtest::TypeText(L"beta");
    kvtest::PressKey(VK_RETURN);
    EXPECT_CALLS(CallsOnly(journal, {"SetUnspecified", "Invoke A put"}), "SetUnspecified A 5 0",
                 "Invoke A put 5 \"beta\"");
    EXPECT_EQ(Stored(0), L"beta");
}

}  // namespace
