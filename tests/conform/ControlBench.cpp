#include "tests/conform/ControlBench.h"

#include "tests/support/MessagePump.h"

namespace kvconform {
namespace {

const fw::WindowClass s_frameClass{.name = L"KvConformFrame"};

}  // namespace

ControlBench::ControlBench(const TestedModule& module, REFCLSID classId) {
    frame.Create(s_frameClass, L"container", WS_POPUP | WS_VISIBLE, {100, 100, 500, 400}, nullptr);
    ::SetForegroundWindow(frame);
    frame.SetFocus();
    site = kvtest::FakeSite::Make(frame, c_place);
    if (FAILED(module.Create(classId, __uuidof(IKvPiPropertyEditControl2), control.PutVoid()))) {
        control.Reset();
    }
    m_journal.Clear();
}

ControlBench::~ControlBench() {
    Discard();
    frame.DestroyWindow();
    kvtest::PumpWaiting();
}

void ControlBench::GiveSite() {
    static_cast<void>(As<IOleObject>()->SetClientSite(site.Get()));
}

DWORD ControlBench::Connect(IUnknown* eventSink) const {
    DWORD cookie = 0;
    fw::ComPtr<IConnectionPoint> point;
    if (const auto points = As<IConnectionPointContainer>();
        points &&
        SUCCEEDED(points->FindConnectionPoint(__uuidof(IKvPiPropertyEditEventsSink2), point.Put())) &&
        FAILED(point->Advise(eventSink, &cookie))) {
        cookie = 0;
    }
    return cookie;
}

HRESULT ControlBench::Disconnect(DWORD cookie) const {
    fw::ComPtr<IConnectionPoint> point;
    const auto points = As<IConnectionPointContainer>();
    const HRESULT found =
        points ? points->FindConnectionPoint(__uuidof(IKvPiPropertyEditEventsSink2), point.Put())
               : E_NOINTERFACE;
    return FAILED(found) ? found : point->Unadvise(cookie);
}

HRESULT ControlBench::DoVerb(LONG verb) const {
    return As<IOleObject>()->DoVerb(verb, nullptr, site.Get(), 0, frame, &c_place);
}

void ControlBench::Discard() {
    if (control) {
        static_cast<void>(As<IOleObject>()->Close(OLECLOSE_NOSAVE));
        static_cast<void>(As<IOleObject>()->SetClientSite(nullptr));
    }
    control.Reset();
}

HWND ControlBench::Row() const {
    HWND window = nullptr;
    const auto object = As<IOleInPlaceObject>();
    return object && SUCCEEDED(object->GetWindow(&window)) ? window : nullptr;
}

Lines ControlBench::TakeCalls() {
    return TakeOnly({"Site.", "Frame.", "On", "first.", "second."});
}

Lines ControlBench::TakeObjectCalls() {
    return TakeOnly({"Invoke "});
}

Lines ControlBench::TakeOnly(const Lines& prefixes) {
    Lines calls = kvtest::CallsOnly(m_journal, prefixes);
    m_journal.Clear();
    return calls;
}

}  // namespace kvconform
