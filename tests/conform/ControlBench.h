#pragma once

#include "KvPEXCtl_h.h"
#include "framework/window/CWnd.h"
#include "tests/conform/Report.h"
#include "tests/conform/TestedModule.h"
#include "tests/support/CallLines.h"
#include "tests/support/FakeSite.h"
#include "tests/support/RecordingSink.h"

namespace kvconform {

/// One control of one class with a container around it. What the control asks of site and frame and what it
/// tells its sinks stands in one journal.
class ControlBench {
public:
    static constexpr RECT c_place = {10, 10, 130, 30};

    /// Makes the control and nothing else; `control` stays null when that fails.
    ControlBench(const TestedModule& module, REFCLSID classId);
    ControlBench(const ControlBench&) = delete;
    ControlBench& operator=(const ControlBench&) = delete;
    /// Closes the control.
    ~ControlBench();

    void GiveSite();
    /// Connects the sink to the control's events; its cookie.
    DWORD Connect(IUnknown* eventSink) const;
    [[nodiscard]] HRESULT Disconnect(DWORD cookie) const;
    HRESULT DoVerb(LONG verb) const;
    /// Closes the control, takes its site back and lets it go.
    void Discard();

    template <class Interface>
    [[nodiscard]] fw::ComPtr<Interface> As() const {
        return control.As<Interface>();
    }
    /// The control's window; null while it has none.
    [[nodiscard]] HWND Row() const;
    /// The calls to site, frame and sinks since the last question, in order.
    [[nodiscard]] Lines TakeCalls();
    /// The same of calls to the objects that the row shows.
    [[nodiscard]] Lines TakeObjectCalls();
    /// A key of which every row tells its palette.
    void PressDown() const { ::SendMessageW(Row(), WM_KEYDOWN, VK_DOWN, 1); }

    CWnd frame;
    fw::ComPtr<kvtest::FakeSite> site;
    fw::ComPtr<IKvPiPropertyEditControl2> control;

private:
    [[nodiscard]] Lines TakeOnly(const Lines& prefixes);

    kvhost::Journal m_journal;
};

}  // namespace kvconform
