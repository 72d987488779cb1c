#include "tests/control/support/RowContainer.h"
#include "tests/control/support/UserInput.h"

namespace {

class RowActivation : public kvtest::RowContainer {
protected:
    CRect RowPlace() {
        CRect place;
        ::GetWindowRect(Row(), &place);
        ::MapWindowPoints(nullptr, frame, reinterpret_cast<POINT*>(&place), 2);
        return place;
    }
    kvtest::CallLines SiteCalls() { return kvtest::CallsOnly(journal, {"Site.", "Frame."}); }
};

TEST_F(RowActivation, InPlaceActivate_MakesTheWindowWithoutAnEdit) {
    CreateTextRow({L"alpha"});
    ASSERT_TRUE(::IsWindow(Row()));
    EXPECT_EQ(RowPlace(), CRect(c_place));
    EXPECT_TRUE(::IsWindowVisible(Row()));
    EXPECT_EQ(Box(), nullptr);
    EXPECT_TRUE(site->isActive);
    EXPECT_FALSE(site->isUIActive);
}

TEST_F(RowActivation, InPlaceActivate_SiteRefuses_MakesNoWindow) {
    Create(CLSID_KvPePropertyEditorText);
    site->canInPlaceActivate = S_FALSE;
    EXPECT_TRUE(FAILED(DoVerb(OLEIVERB_INPLACEACTIVATE)));
    EXPECT_EQ(Row(), nullptr);
}

TEST_F(RowActivation, UIActivate_OpensTheEditOverTheClientArea) {
    CreateTextRow({L"alpha"});
    EXPECT_EQ(DoVerb(OLEIVERB_UIACTIVATE), S_OK);
    EXPECT_TRUE(site->isUIActive);
    ASSERT_NE(Box(), nullptr);
    EXPECT_EQ(::GetFocus(), Box());
    EXPECT_EQ(BoxText(), L"alpha");
    CRect client;
    ::GetClientRect(Box(), &client);
    EXPECT_EQ(client, CRect(0, 0, 120, 20));
}

TEST_F(RowActivation, UIActivate_ReadOnly_OpensNoEdit) {
    CreateTextRow({L"alpha"}, true);
    EXPECT_EQ(DoVerb(OLEIVERB_UIACTIVATE), S_OK);
    EXPECT_EQ(Box(), nullptr);
}

TEST_F(RowActivation, UIActivate_Again_KeepsWhatWasTyped) {
    CreateTextRow({L"alpha"});
    UIActivate();
    ::SetWindowTextW(Box(), L"typed");
    UIActivate();
    EXPECT_EQ(BoxText(), L"typed");
}

TEST_F(RowActivation, UIDeactivate_CommitsAndHidesTheBox) {
    CreateTextRow({L"alpha"});
    UIActivate();
    ::SetWindowTextW(Box(), L"beta");
    EXPECT_EQ(As<IOleInPlaceObject>()->UIDeactivate(), S_OK);
    EXPECT_FALSE(::IsWindowVisible(Box()));
    EXPECT_EQ(fw::Variant::ViewString(objects[0]->At(c_property).Get()), L"beta");
    EXPECT_FALSE(site->isUIActive);
}

TEST_F(RowActivation, Hide_CommitsThenHidesTheWindow) {
    CreateTextRow({L"alpha"});
    UIActivate();
    ::SetWindowTextW(Box(), L"beta");
    bool rowVisibleAtCommit = false;
    sink->onEvent = [&](const std::wstring& event) {
        rowVisibleAtCommit |= event == L"OnBeginPropertyUpdate" && ::IsWindowVisible(Row());
        return S_OK;
    };
    EXPECT_EQ(DoVerb(OLEIVERB_HIDE), S_OK);
    EXPECT_TRUE(rowVisibleAtCommit);
    EXPECT_FALSE(::IsWindowVisible(Row()));
    EXPECT_EQ(fw::Variant::ViewString(objects[0]->At(c_property).Get()), L"beta");
}

TEST_F(RowActivation, Show_AfterHide_ShowsTheRowAgain) {
    CreateTextRow({L"alpha"});
    EXPECT_EQ(DoVerb(OLEIVERB_HIDE), S_OK);
    EXPECT_EQ(DoVerb(OLEIVERB_SHOW), S_OK);
    EXPECT_TRUE(::IsWindowVisible(Row()));
}

TEST_F(RowActivation, Show_WithoutAWindow_ActivatesInPlace) {
    Create(CLSID_KvPePropertyEditorText);
    EXPECT_EQ(InitEdit({&MakeObject(L"A", L"alpha")}), S_OK);
    EXPECT_EQ(DoVerb(OLEIVERB_SHOW), S_OK);
    EXPECT_TRUE(::IsWindowVisible(Row()));
}

TEST_F(RowActivation, Show_InEdit_RepaintsTheBoxOnTop) {
    CreateTextRow({L"alpha"});
    UIActivate();
    ::ValidateRect(Box(), nullptr);
    EXPECT_EQ(DoVerb(OLEIVERB_SHOW), S_OK);
    EXPECT_TRUE(::GetUpdateRect(Box(), nullptr, FALSE));
    EXPECT_EQ(::GetTopWindow(Row()), Box());
}

TEST_F(RowActivation, SetObjectRects_InEdit_RowAndBoxFollow) {
    CreateTextRow({L"alpha"});
    UIActivate();
    const RECT place = {20, 50, 240, 75};
    EXPECT_EQ(As<IOleInPlaceObject>()->SetObjectRects(&place, &place), S_OK);
    EXPECT_EQ(RowPlace(), CRect(place));
    CRect box;
    ::GetWindowRect(Box(), &box);
    ::MapWindowPoints(nullptr, Row(), reinterpret_cast<POINT*>(&box), 2);
    EXPECT_EQ(box, CRect(0, 0, 220, 25));
}

TEST_F(RowActivation, Close_InEdit_CommitsAndTakesTheWindowAway) {
    CreateTextRow({L"alpha"});
    UIActivate();
    ::SetWindowTextW(Box(), L"beta");
    const HWND row = Row();
    EXPECT_EQ(As<IOleObject>()->Close(OLECLOSE_NOSAVE), S_OK);
    EXPECT_FALSE(::IsWindow(row));
    EXPECT_EQ(fw::Variant::ViewString(objects[0]->At(c_property).Get()), L"beta");
    EXPECT_FALSE(site->isActive);
}

TEST_F(RowActivation, Close_ThenActivatedAgain_EditsInANewWindow) {
    CreateTextRow({L"alpha"});
    UIActivate();
    EXPECT_EQ(As<IOleObject>()->Close(OLECLOSE_NOSAVE), S_OK);
    UIActivate();
    EXPECT_EQ(::GetFocus(), Box());
    EXPECT_EQ(BoxText(), L"alpha");
}

TEST_F(RowActivation, Click_IntoTheRow_ActivatesAndCountsAsAClick) {
    CreateTextRow({L"alpha"});
    kvtest::ClickAt(Row(), {4, 4});
    EXPECT_TRUE(site->isUIActive);
    ASSERT_NE(Box(), nullptr);
    EXPECT_EQ(::GetFocus(), Box());
    // The click also reaches the palette.
    EXPECT_CALLS(Events(), "OnClick");
}

TEST_F(RowActivation, KeepFocus_OnlyAfterTheUserHasBegun) {
    CreateTextRow({L"alpha"});
    UIActivate();
    VARIANT_BOOL keeps = VARIANT_TRUE;
    EXPECT_EQ(control->get_KeepFocus(&keeps), S_OK);
    EXPECT_EQ(keeps, VARIANT_FALSE);
    kvtest::PressKey('X');
    EXPECT_EQ(control->get_KeepFocus(&keeps), S_OK);
    EXPECT_EQ(keeps, VARIANT_TRUE);
}

TEST_F(RowActivation, FrameAndSite_AreCalledInOrder) {
    Create(CLSID_KvPePropertyEditorText);
    EXPECT_EQ(InitEdit({&MakeObject(L"A", L"alpha")}), S_OK);
    Clear();
    EXPECT_EQ(DoVerb(OLEIVERB_UIACTIVATE), S_OK);
    const auto calls = kvtest::CallsIgnoring(journal, {"Site.Ambient", "Invoke"});
    ASSERT_GE(calls.size(), 6u);
    EXPECT_EQ(calls[0], "Site.CanInPlaceActivate");
    EXPECT_EQ(calls[1], "Site.OnInPlaceActivate");
    EXPECT_NE(std::find(calls.begin(), calls.end(), "Site.OnUIActivate"), calls.end());
    EXPECT_NE(std::find(calls.begin(), calls.end(), "Frame.SetActiveObject control"), calls.end());
    EXPECT_NE(std::find(calls.begin(), calls.end(), "Site.OnFocus 1"), calls.end());
}

}  // namespace
