#include <stdexcept>

#include "tests/unit/framework/com/ControlTest.h"

namespace {

class InPlaceTest : public kvtest::ControlTest {};

TEST_F(InPlaceTest, InPlaceActivate_AsksTheSiteInOrder) {
    EXPECT_EQ(Do(OLEIVERB_INPLACEACTIVATE), S_OK);
    EXPECT_LOG("site.CanInPlaceActivate", "site.OnInPlaceActivate", "site.GetWindow", "site.GetWindowContext",
               "row.OnObjectRectsSet 10,20,110,40 clip 10,20,110,40", "site.ShowObject");
    EXPECT_TRUE(m_row->m_bInPlaceActive);
    EXPECT_FALSE(m_row->m_bUIActive);
    ASSERT_TRUE(m_row->IsWindow());
    EXPECT_EQ(::GetParent(m_row->m_hWnd), m_parent.m_hWnd);
    EXPECT_EQ(m_row->GetStyle() & (WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | WS_CLIPCHILDREN),
              static_cast<DWORD>(WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | WS_CLIPCHILDREN));
    CRect bounds = m_row->GetWindowRect();
    m_parent.ScreenToClient(&bounds);
    EXPECT_EQ(bounds, CRect(10, 20, 110, 40));
}

TEST_F(InPlaceTest, UIActivate_TellsSiteFrameAndDocumentInOrder) {
    EXPECT_EQ(Do(OLEIVERB_UIACTIVATE), S_OK);
    EXPECT_LOG("site.CanInPlaceActivate", "site.OnInPlaceActivate", "site.GetWindow", "site.GetWindowContext",
               "row.OnObjectRectsSet 10,20,110,40 clip 10,20,110,40", "site.OnUIActivate", "site.OnFocus 1",
               "frame.SetActiveObject TestRow Class", "frame.SetBorderSpace null",
               "document.SetActiveObject TestRow Class", "document.SetBorderSpace null",
               "row.OnUserActivated 0,0,100,20", "site.ShowObject");
    EXPECT_TRUE(m_row->m_bUIActive);
    EXPECT_EQ(::GetFocus(), m_row->m_hWnd);
}

TEST_F(InPlaceTest, UIActivateAgain_TellsTheHookOnly) {
    EXPECT_EQ(Do(OLEIVERB_UIACTIVATE), S_OK);
    kvtest::Log().clear();
    EXPECT_EQ(Do(OLEIVERB_UIACTIVATE), S_OK);
    EXPECT_LOG("site.GetWindow", "site.GetWindowContext",
               "row.OnObjectRectsSet 10,20,110,40 clip 10,20,110,40", "row.OnUserActivated 0,0,100,20",
               "site.ShowObject");
}

TEST_F(InPlaceTest, UIDeactivate_TakesTheActivationBack) {
    EXPECT_EQ(Do(OLEIVERB_UIACTIVATE), S_OK);
    kvtest::Log().clear();
    EXPECT_EQ(m_inPlace->UIDeactivate(), S_OK);
    EXPECT_LOG("row.OnUIDeactivating", "frame.SetActiveObject null", "document.SetActiveObject null",
               "site.OnUIDeactivate");
    EXPECT_FALSE(m_row->m_bUIActive);
    EXPECT_TRUE(m_row->m_bInPlaceActive);
    EXPECT_TRUE(m_row->IsWindow());
}

TEST_F(InPlaceTest, InPlaceDeactivate_EndsWindowAndSite) {
    EXPECT_EQ(Do(OLEIVERB_INPLACEACTIVATE), S_OK);
    kvtest::Log().clear();
    EXPECT_EQ(m_inPlace->InPlaceDeactivate(), S_OK);
    EXPECT_LOG("row.OnUIDeactivating", "site.OnInPlaceDeactivate");
    EXPECT_FALSE(m_row->IsWindow());
    EXPECT_FALSE(m_row->m_spInPlaceSite);
    EXPECT_EQ(m_inPlace->InPlaceDeactivate(), S_OK);
    EXPECT_EMPTY_LOG();
}

TEST_F(InPlaceTest, ActivateAfterDeactivate_MakesANewWindow) {
    EXPECT_EQ(Do(OLEIVERB_INPLACEACTIVATE), S_OK);
    EXPECT_EQ(m_inPlace->InPlaceDeactivate(), S_OK);
    EXPECT_EQ(Do(OLEIVERB_UIACTIVATE), S_OK);
    EXPECT_TRUE(m_row->IsWindow());
    EXPECT_TRUE(m_row->m_bUIActive);
}

TEST_F(InPlaceTest, Close_WhileUIActive_EndsEverythingInOrder) {
    EXPECT_EQ(Do(OLEIVERB_UIACTIVATE), S_OK);
    kvtest::Log().clear();
    EXPECT_EQ(m_object->Close(OLECLOSE_SAVEIFDIRTY), S_OK);
    EXPECT_LOG("row.OnUIDeactivating", "frame.SetActiveObject null", "document.SetActiveObject null",
               "site.OnUIDeactivate", "site.OnFocus 0", "site.OnInPlaceDeactivate");
    EXPECT_FALSE(m_row->m_bClosing);
}

TEST_F(InPlaceTest, SiteTakenBackWhileActive_Deactivates) {
    EXPECT_EQ(Do(OLEIVERB_INPLACEACTIVATE), S_OK);
    kvtest::Log().clear();
    EXPECT_EQ(m_object->SetClientSite(nullptr), S_OK);
    EXPECT_LOG("row.OnUIDeactivating", "site.OnInPlaceDeactivate");
    EXPECT_FALSE(m_row->IsWindow());
}

TEST_F(InPlaceTest, LastReferenceReleasedWhileActive_DeactivatesQuietly) {
    EXPECT_EQ(Do(OLEIVERB_INPLACEACTIVATE), S_OK);
    const HWND window = m_row->m_hWnd;
    kvtest::Log().clear();
    m_object.Reset();
    m_inPlace.Reset();
    m_row.Reset();
    EXPECT_LOG("row.OnUIDeactivating", "site.OnInPlaceDeactivate");
    EXPECT_FALSE(::IsWindow(window));
    EXPECT_EQ(kvtest::TestModule().GetLockCount(), 0);
}

TEST_F(InPlaceTest, NoSite_IsNotPossible) {
    EXPECT_EQ(m_object->SetClientSite(nullptr), S_OK);
    EXPECT_EQ(Do(OLEIVERB_UIACTIVATE), OLE_E_NOT_INPLACEACTIVE);
    EXPECT_EMPTY_LOG();
}

TEST_F(InPlaceTest, SiteRefuses_NothingIsActive) {
    Container().results["site.CanInPlaceActivate"] = S_FALSE;
    EXPECT_EQ(Do(OLEIVERB_UIACTIVATE), E_FAIL);
    EXPECT_LOG("site.CanInPlaceActivate");
    EXPECT_FALSE(m_row->m_bInPlaceActive);
    Container().results = {{"site.OnInPlaceActivate", E_ACCESSDENIED}};
    EXPECT_EQ(Do(OLEIVERB_UIACTIVATE), E_ACCESSDENIED);
    EXPECT_FALSE(m_row->m_bInPlaceActive);
    EXPECT_FALSE(m_row->m_spInPlaceSite);
}

TEST_F(InPlaceTest, NoWindowContext_IsTakenBack) {
    Container().results["site.GetWindowContext"] = E_UNEXPECTED;
    EXPECT_EQ(Do(OLEIVERB_INPLACEACTIVATE), E_UNEXPECTED);
    EXPECT_LOG("site.CanInPlaceActivate", "site.OnInPlaceActivate", "site.GetWindow", "site.GetWindowContext",
               "row.OnUIDeactivating", "site.OnInPlaceDeactivate");
    EXPECT_FALSE(m_row->m_bInPlaceActive);
}

TEST_F(InPlaceTest, UIActivationRefused_StaysInPlace) {
    Container().results["site.OnUIActivate"] = E_FAIL;
    EXPECT_EQ(Do(OLEIVERB_UIACTIVATE), E_FAIL);
    EXPECT_FALSE(m_row->m_bUIActive);
    EXPECT_TRUE(m_row->m_bInPlaceActive);
}

TEST_F(InPlaceTest, EditingThrows_NothingCrossesTheBorder) {
    m_row->whenActivated = [] { throw std::runtime_error("no child window"); };
    EXPECT_EQ(Do(OLEIVERB_UIACTIVATE), E_FAIL);
    EXPECT_EQ(m_inPlace->InPlaceDeactivate(), S_OK);
    EXPECT_FALSE(m_row->m_bInPlaceActive);
}

TEST_F(InPlaceTest, ContainerWithoutDocument_IsFine) {
    m_site->document->activeObject.Reset();
    const auto document = std::exchange(m_site->document, {});
    EXPECT_EQ(Do(OLEIVERB_UIACTIVATE), S_OK);
    EXPECT_TRUE(m_row->m_bUIActive);
    EXPECT_EQ(m_inPlace->UIDeactivate(), S_OK);
    m_site->document = document;
}

class InPlaceReentryTest : public InPlaceTest, public testing::WithParamInterface<const char*> {};

TEST_P(InPlaceReentryTest, SiteClosesTheControlInsideACall_NothingBreaks) {
    Container().actions[GetParam()] = [this] {
        Container().actions.clear();
        EXPECT_EQ(m_object->Close(OLECLOSE_NOSAVE), S_OK);
    };
    fw::Ignore(Do(OLEIVERB_UIACTIVATE));
    EXPECT_FALSE(m_row->m_bInPlaceActive);
    EXPECT_FALSE(m_row->m_bUIActive);
    EXPECT_FALSE(m_row->IsWindow());
    EXPECT_EQ(Do(OLEIVERB_UIACTIVATE), S_OK);
    EXPECT_TRUE(m_row->m_bUIActive);
}

TEST_P(InPlaceReentryTest, SiteLetsGoOfTheControlInsideACall_NothingBreaks) {
    Container().actions[GetParam()] = [this] {
        Container().actions.clear();
        m_site->frame->activeObject.Reset();
        m_site->document->activeObject.Reset();
        m_inPlace.Reset();
        m_row.Reset();
        m_object.Reset();
    };
    const fw::ComPtr<CComObject<kvtest::RecordingSite>> site = m_site;
    IOleObject* const object = m_object.Get();
    fw::Ignore(object->DoVerb(OLEIVERB_UIACTIVATE, nullptr, m_site.Get(), 0, m_parent, &m_site->place));
    m_site->frame->activeObject.Reset();
    m_site->document->activeObject.Reset();
    EXPECT_EQ(kvtest::TestModule().GetLockCount(), 0);
}

INSTANTIATE_TEST_SUITE_P(Calls, InPlaceReentryTest,
                         testing::Values("site.CanInPlaceActivate", "site.OnInPlaceActivate",
                                         "site.GetWindow", "site.GetWindowContext", "site.OnUIActivate",
                                         "frame.SetActiveObject", "document.SetBorderSpace",
                                         "site.ShowObject"));

TEST_F(InPlaceTest, SetObjectRects_MovesAndClips) {
    EXPECT_EQ(Do(OLEIVERB_INPLACEACTIVATE), S_OK);
    kvtest::Log().clear();
    const RECT place{20, 30, 220, 60};
    const RECT clip{20, 30, 120, 60};
    EXPECT_EQ(m_inPlace->SetObjectRects(&place, &clip), S_OK);
    EXPECT_LOG("row.OnObjectRectsSet 20,30,220,60 clip 20,30,120,60");
    CRect bounds = m_row->GetWindowRect();
    m_parent.ScreenToClient(&bounds);
    EXPECT_EQ(bounds, CRect(place));
    CRect visible;
    EXPECT_NE(::GetWindowRgnBox(m_row->m_hWnd, &visible), ERROR);
    EXPECT_EQ(visible, CRect(0, 0, 100, 30));
    EXPECT_EQ(m_inPlace->SetObjectRects(&place, nullptr), S_OK);
    EXPECT_EQ(::GetWindowRgnBox(m_row->m_hWnd, &visible), ERROR);
    EXPECT_EQ(m_inPlace->SetObjectRects(nullptr, &clip), E_POINTER);
}

TEST_F(InPlaceTest, SetObjectRects_WithoutWindow_IsRemembered) {
    const RECT place{1, 2, 3, 4};
    EXPECT_EQ(m_inPlace->SetObjectRects(&place, &place), S_OK);
    EXPECT_EQ(CRect(m_row->m_rcPos), CRect(place));
}

TEST_F(InPlaceTest, WindowlessCalls_AreLeftToTheWindow) {
    const auto windowless = fw::QueryFrom<IOleInPlaceObjectWindowless>(m_row->GetUnknown());
    LRESULT result = 5;
    EXPECT_EQ(windowless->OnWindowMessage(WM_CHAR, 'a', 0, &result), S_FALSE);
    EXPECT_EQ(result, 0);
    EXPECT_EQ(windowless->OnWindowMessage(WM_CHAR, 'a', 0, nullptr), E_POINTER);
    fw::ComPtr<IDropTarget> target;
    EXPECT_EQ(windowless->GetDropTarget(target.Put()), E_NOTIMPL);
    EXPECT_EQ(windowless->ReactivateAndUndo(), INPLACE_E_NOTUNDOABLE);
    HWND window = m_parent;
    EXPECT_EQ(windowless->GetWindow(&window), E_FAIL);
    EXPECT_EQ(window, nullptr);
    EXPECT_EQ(windowless->GetWindow(nullptr), E_POINTER);
    EXPECT_EQ(Do(OLEIVERB_SHOW), S_OK);
    EXPECT_EQ(windowless->GetWindow(&window), S_OK);
    EXPECT_EQ(window, m_row->m_hWnd);
}

TEST_F(InPlaceTest, TranslateAccelerator_AsksControlThenSite) {
    const auto active = fw::QueryFrom<IOleInPlaceActiveObject>(m_row->GetUnknown());
    MSG key{};
    key.message = WM_KEYDOWN;
    key.wParam = VK_TAB;
    EXPECT_EQ(active->TranslateAccelerator(&key), S_OK);
    EXPECT_LOG("site.TranslateAccelerator 0");
    Container().results["site.TranslateAccelerator"] = S_FALSE;
    EXPECT_EQ(active->TranslateAccelerator(&key), S_FALSE);
    kvtest::Log().clear();
    m_row->swallowsKeys = true;
    EXPECT_EQ(active->TranslateAccelerator(&key), S_OK);
    EXPECT_EMPTY_LOG();
    EXPECT_EQ(active->TranslateAccelerator(nullptr), E_POINTER);
    EXPECT_EQ(active->OnFrameWindowActivate(TRUE), S_OK);
    EXPECT_EQ(active->OnDocWindowActivate(FALSE), S_OK);
    EXPECT_EQ(active->ResizeBorder(nullptr, nullptr, TRUE), S_OK);
    EXPECT_EQ(active->EnableModeless(TRUE), S_OK);
}

}  // namespace
