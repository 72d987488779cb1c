#include "framework/base/DeviceContexts.h"
#include "tests/support/MessagePump.h"
#include "tests/unit/framework/com/ControlTest.h"

namespace {

class ControlWindowTest : public kvtest::ControlTest {
protected:
    void SetUp() override {
        ControlTest::SetUp();
        ASSERT_EQ(Do(OLEIVERB_INPLACEACTIVATE), S_OK);
        kvtest::Log().clear();
    }
};

TEST_F(ControlWindowTest, PaintAndPrint_EndInOneDrawing) {
    std::vector<CRect> drawn;
    m_row->draw = [&](ATL_DRAWINFO& info) {
        EXPECT_NE(info.hdcDraw, nullptr);
        drawn.push_back(
            CRect(info.prcBounds->left, info.prcBounds->top, info.prcBounds->right, info.prcBounds->bottom));
        return S_OK;
    };
    m_row->RedrawWindow();
    const fw::MemoryDc dc(nullptr);
    m_row->SendMessage(WM_PRINTCLIENT, reinterpret_cast<WPARAM>(dc.Get()), PRF_CLIENT);
    m_row->SendMessage(WM_PRINTCLIENT, 0, PRF_CLIENT);
    ASSERT_EQ(drawn.size(), 2u);
    EXPECT_EQ(drawn[0], CRect(0, 0, 100, 20));
    EXPECT_EQ(drawn[1], drawn[0]);
}

TEST_F(ControlWindowTest, FocusByUser_ActivatesTheControl) {
    m_row->SetFocus();
    EXPECT_TRUE(m_row->m_bUIActive);
    EXPECT_LOG("site.GetWindow", "site.GetWindowContext",
               "row.OnObjectRectsSet 10,20,110,40 clip 10,20,110,40", "site.OnUIActivate",
               "frame.SetActiveObject TestRow Class", "frame.SetBorderSpace null",
               "document.SetActiveObject TestRow Class", "document.SetBorderSpace null",
               "row.OnUserActivated 0,0,100,20", "site.ShowObject", "site.OnFocus 1");
    m_parent.SetFocus();
    EXPECT_LOG("site.OnFocus 0");
}

TEST_F(ControlWindowTest, FocusToAChildOfTheControl_IsNotToldToTheSite) {
    m_row->SetFocus();
    CWnd child;
    ASSERT_TRUE(
        child.CreateControl(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE, {0, 0, 50, 20}, m_row->m_hWnd, 1));
    kvtest::Log().clear();
    child.SetFocus();
    m_row->SetFocus();
    EXPECT_EMPTY_LOG();
    child.DestroyWindow();
}

TEST_F(ControlWindowTest, Click_ActivatesOnce) {
    EXPECT_EQ(m_row->SendMessage(WM_MOUSEACTIVATE, reinterpret_cast<WPARAM>(m_parent.m_hWnd),
                                 MAKELPARAM(HTCLIENT, WM_LBUTTONDOWN)),
              MA_ACTIVATE);
    EXPECT_TRUE(m_row->m_bUIActive);
    kvtest::Log().clear();
    m_row->SendMessage(WM_MOUSEACTIVATE, reinterpret_cast<WPARAM>(m_parent.m_hWnd),
                       MAKELPARAM(HTCLIENT, WM_LBUTTONDOWN));
    EXPECT_EMPTY_LOG();
}

TEST_F(ControlWindowTest, ContainerDestroysItsWindow_ControlCanBeShownAgain) {
    CWnd other;
    static const fw::WindowClass s_class{L"KvFrameTestContainer"};
    ASSERT_TRUE(other.Create(s_class, L"", WS_POPUP | WS_VISIBLE, {0, 0, 200, 200}, nullptr));
    ::SetParent(m_row->m_hWnd, other);
    other.DestroyWindow();
    EXPECT_FALSE(m_row->IsWindow());
    EXPECT_EQ(Do(OLEIVERB_SHOW), S_OK);
    EXPECT_TRUE(m_row->IsWindow());
    EXPECT_EQ(::GetParent(m_row->m_hWnd), m_parent.m_hWnd);
}

TEST_F(ControlWindowTest, ContainerMovesToAnotherWindow_ControlFollows) {
    CWnd other;
    static const fw::WindowClass s_class{L"KvFrameTestContainer"};
    ASSERT_TRUE(other.Create(s_class, L"", WS_POPUP | WS_VISIBLE, {0, 0, 200, 200}, nullptr));
    m_site->parent = other;
    EXPECT_EQ(Do(OLEIVERB_SHOW), S_OK);
    EXPECT_EQ(::GetParent(m_row->m_hWnd), other.m_hWnd);
    EXPECT_EQ(m_object->Close(OLECLOSE_NOSAVE), S_OK);
    other.DestroyWindow();
}

TEST_F(ControlWindowTest, LastReferenceGoesInsideAMessage_NothingBreaks) {
    const HWND window = m_row->m_hWnd;
    m_row->draw = [&](ATL_DRAWINFO&) {
        m_object.Reset();
        m_inPlace.Reset();
        m_row.Reset();
        return S_OK;
    };
    ::RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    EXPECT_FALSE(::IsWindow(window));
    EXPECT_EQ(kvtest::TestModule().GetLockCount(), 0);
}

TEST_F(ControlWindowTest, ClosedDuringActivation_HookIsNotCalled) {
    Container().actions["site.OnUIActivate"] = [this] { m_row->m_bClosing = true; };
    m_row->SetFocus();
    m_row->m_bClosing = false;
    for (const std::string& call : std::exchange(kvtest::Log(), {})) {
        EXPECT_FALSE(call.starts_with("row.OnUserActivated")) << call;
    }
}

}  // namespace
