// The platform's generic container, which nobody here wrote, hosts the control.
#include <gtest/gtest.h>

#include "framework/base/Handles.h"
#include "framework/window/CWnd.h"
#include "tests/support/MessagePump.h"
#include "tests/support/WarmUp.h"
#include "tests/unit/framework/com/CallLog.h"
#include "tests/unit/framework/com/TestRow.h"

namespace {

HMODULE Container() {
    // Stays loaded: its window class stays registered.
    static const HMODULE s_container = ::LoadLibraryW(L"atl.dll");
    return s_container;
}

template <class Function>
Function Export(const char* name) {
    return reinterpret_cast<Function>(reinterpret_cast<void*>(::GetProcAddress(Container(), name)));
}

class AtlAxWinTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_NE(Container(), nullptr);
        // A second call would fail: the window class is there already.
        static const BOOL s_ready = Export<BOOL(WINAPI*)()>("AtlAxWinInit")();
        ASSERT_TRUE(s_ready);
        fw::ComPtr<IClassFactory> factory;
        ASSERT_EQ(
            kvtest::TestModule().GetClassObject(CLSID_TestRowControl, IID_IClassFactory, factory.PutVoid()),
            S_OK);
        ASSERT_EQ(::CoRegisterClassObject(CLSID_TestRowControl, factory.Get(), CLSCTX_INPROC_SERVER,
                                          REGCLS_MULTIPLEUSE, &m_registered),
                  S_OK);
        static const fw::WindowClass s_class{L"KvFrameTestContainer"};
        ASSERT_TRUE(m_parent.Create(s_class, L"", WS_POPUP | WS_VISIBLE, {0, 0, 400, 300}, nullptr));
        m_host = ::CreateWindowExW(0, L"AtlAxWin", L"{7B1F0C5E-3D0B-4E5A-9B0B-0A54D1A3C604}",
                                   WS_CHILD | WS_VISIBLE, 10, 10, 200, 30, m_parent, nullptr,
                                   fw::ThisModule(), nullptr);
        ASSERT_NE(m_host, nullptr);
    }
    void TearDown() override {
        m_parent.DestroyWindow();
        kvtest::PumpWaiting();
        EXPECT_EQ(::CoRevokeClassObject(m_registered), S_OK);
        EXPECT_EQ(kvtest::TestModule().GetLockCount(), 0);
        kvtest::Log().clear();
    }

    fw::ComPtr<IUnknown> Control() {
        fw::ComPtr<IUnknown> control;
        EXPECT_EQ(Export<HRESULT(WINAPI*)(HWND, IUnknown**)>("AtlAxGetControl")(m_host, control.Put()), S_OK);
        return control;
    }
    HWND Window() {
        HWND window = nullptr;
        EXPECT_EQ(Control().As<IOleWindow>()->GetWindow(&window), S_OK);
        return window;
    }

    CWnd m_parent;
    HWND m_host = nullptr;
    DWORD m_registered = 0;
};

TEST_F(AtlAxWinTest, Created_IsShownInPlace) {
    CRect bounds;
    ::GetWindowRect(Window(), &bounds);
    EXPECT_EQ(bounds.Size(), CSize(200, 30));
    EXPECT_TRUE(::IsWindowVisible(Window()));
}

TEST_F(AtlAxWinTest, Resized_FollowsItsHost) {
    ::MoveWindow(m_host, 10, 10, 120, 40, TRUE);
    CRect bounds;
    ::GetWindowRect(Window(), &bounds);
    EXPECT_EQ(bounds.Size(), CSize(120, 40));
}

TEST_F(AtlAxWinTest, Focus_ActivatesForTheUser) {
    kvtest::Log().clear();
    ::SetFocus(Window());
    EXPECT_EQ(::GetFocus(), Window());
    EXPECT_LOG("row.OnObjectRectsSet 0,0,200,30 clip 0,0,200,30", "row.OnUserActivated 0,0,200,30");
}

TEST_F(AtlAxWinTest, HostDestroyed_ControlEnds) {
    const HWND window = Window();
    ::DestroyWindow(m_host);
    EXPECT_FALSE(::IsWindow(window));
    EXPECT_LE(kvtest::TestModule().GetLockCount(), 1);
}

}  // namespace
