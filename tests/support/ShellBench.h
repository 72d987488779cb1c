#pragma once

#include <gtest/gtest.h>

#include "framework/com/CComObject.h"
#include "framework/com/ComPtr.h"
#include "framework/window/CWnd.h"
#include "refhost/editor/DocumentManager.h"
#include "refhost/editor/HostSession.h"
#include "refhost/testing/Journal.h"
#include "tests/support/FakeSite.h"
#include "tests/support/MessagePump.h"
#include "tests/support/RecordingSink.h"

namespace kvtest {

/// A host with one drawing, a frame window and, on a site in it, a control that is not active yet. Host
/// calls, calls on site and frame, and events stand in one journal.
template <class Shell>
class ShellBench : public ::testing::Test {
protected:
    static constexpr RECT c_place = {10, 20, 130, 40};

    ShellBench() : document(&host->Documents().New()) {
        frame.Create(s_windowClass, L"bench", WS_POPUP | WS_VISIBLE, {100, 100, 400, 300}, nullptr);
        ::SetForegroundWindow(frame);
        EXPECT_EQ(CComObject<Shell>::CreateInstance(nullptr, &shell), S_OK);
        site = FakeSite::Make(frame, c_place);
        sink = RecordingSink::Make();
        EXPECT_EQ(shell->SetClientSite(site.Get()), S_OK);
        fw::ComPtr<IConnectionPoint> point;
        EXPECT_EQ(shell->FindConnectionPoint(__uuidof(IKvPiPropertyEditEventsSink2), point.Put()), S_OK);
        EXPECT_EQ(point->Advise(sink.Get(), &cookie), S_OK);
        Clear();
    }
    ~ShellBench() override {
        Discard();
        frame.DestroyWindow();
        PumpWaiting();
    }

    /// Ends and lets go of the control, as the palette does with its rows.
    void Discard() {
        if (shell != nullptr) {
            EXPECT_EQ(shell->Close(OLECLOSE_NOSAVE), S_OK);
            EXPECT_EQ(shell->SetClientSite(nullptr), S_OK);
            shell->Release();
            shell = nullptr;
        }
    }
    HRESULT DoVerb(LONG verb) { return shell->DoVerb(verb, nullptr, site.Get(), 0, frame, &c_place); }
    /// Makes the control's window and forgets what that led to.
    void Activate() {
        EXPECT_EQ(DoVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
        Clear();
    }
    /// Opens the row as a user does who moves to it, and forgets what that led to.
    void Edit() {
        EXPECT_EQ(DoVerb(OLEIVERB_UIACTIVATE), S_OK);
        Clear();
    }
    void Clear() {
        PumpWaiting();
        journal.Clear();
    }
    HWND Window() const { return shell->m_hWnd; }

    kvhost::HostSession host;
    kvhost::Document* document;
    kvhost::Journal journal;
    CWnd frame;
    CComObject<Shell>* shell = nullptr;
    fw::ComPtr<FakeSite> site;
    fw::ComPtr<RecordingSink> sink;
    DWORD cookie = 0;

private:
    inline static const fw::WindowClass s_windowClass{.name = L"KvTestShellFrame", .style = CS_DBLCLKS};
};

}  // namespace kvtest
