#pragma once

#include "benchmarks/Drawing.h"
#include "framework/base/Hresult.h"
#include "framework/com/CComObject.h"
#include "framework/window/CWnd.h"
#include "tests/support/FakeSite.h"
#include "tests/support/MessagePump.h"

namespace kvbench {

/// A row's shell in a frame of its own, as a palette holds it.
template <class Shell>
class HostedRow {
public:
    HostedRow() {
        m_frame.Create(s_windowClass, L"bench", WS_POPUP | WS_VISIBLE, {50, 50, 450, 350}, nullptr);
        ::SetForegroundWindow(m_frame);
        Require(CComObject<Shell>::CreateInstance(nullptr, &m_shell) == S_OK, "a row is made");
        m_site = kvtest::FakeSite::Make(m_frame, c_place);
        Require(m_shell->SetClientSite(m_site.Get()) == S_OK, "a row takes its site");
    }
    HostedRow(const HostedRow&) = delete;
    HostedRow& operator=(const HostedRow&) = delete;
    ~HostedRow() {
        fw::Ignore(m_shell->Close(OLECLOSE_NOSAVE));  // the row goes all the same
        fw::Ignore(m_shell->SetClientSite(nullptr));
        m_shell->Release();
        m_frame.DestroyWindow();
        kvtest::PumpWaiting();
    }

    [[nodiscard]] Shell& GetShell() { return *m_shell; }
    /// Moves to the row, as a user does.
    void Activate() {
        Require(m_shell->DoVerb(OLEIVERB_UIACTIVATE, nullptr, m_site.Get(), 0, m_frame, &c_place) == S_OK,
                "a row is activated");
    }
    void Leave() { Require(m_shell->UIDeactivate() == S_OK, "a row is left"); }

    static constexpr RECT c_place = {10, 20, 190, 40};

private:
    inline static const fw::WindowClass s_windowClass{.name = L"KvBenchFrame"};
    CWnd m_frame;
    CComObject<Shell>* m_shell = nullptr;
    fw::ComPtr<kvtest::FakeSite> m_site;
};

}  // namespace kvbench
