// IQuickActivate: each field that a container hands over, and each that it gets.

#include "framework/com/CComModule.h"
#include "tests/conform/Checks.h"
#include "tests/conform/ControlBench.h"
#include "tests/conform/Fonts.h"
#include "tests/support/NoticeSink.h"

namespace kvconform {
namespace {

/// The two records of one call, filled as a container does that uses everything.
struct QuickCall {
    explicit QuickCall(ControlBench& bench)
        : events(kvtest::RecordingSink::Make()), notices(kvtest::NoticeSink::Make()), font(MakeFont()) {
        container.cbSize = sizeof container;
        container.pClientSite = bench.site.Get();
        container.pAdviseSink = notices.Get();
        container.pPropertyNotifySink = notices.Get();
        container.pUnkEventSink = events.Get();
        container.colorFore = 0x123456;
        container.colorBack = 0x654321;
        container.pFont = font.Get();
        control.cbSize = sizeof control;
        control.dwPointerActivationPolicy = 77;
    }
    HRESULT Do(const ControlBench& bench) {
        return bench.As<IQuickActivate>()->QuickActivate(&container, &control);
    }

    fw::ComPtr<kvtest::RecordingSink> events;
    fw::ComPtr<kvtest::NoticeSink> notices;
    fw::ComPtr<IFont> font;
    QACONTAINER container{};
    QACONTROL control{};
};

bool IsSiteOf(const ControlBench& bench) {
    fw::ComPtr<IOleClientSite> site;
    static_cast<void>(bench.As<IOleObject>()->GetClientSite(site.Put()));
    return site.Get() == static_cast<IOleClientSite*>(bench.site.Get());
}

HRESULT DisconnectNotices(const ControlBench& bench, DWORD cookie) {
    fw::ComPtr<IConnectionPoint> point;
    const HRESULT found =
        bench.As<IConnectionPointContainer>()->FindConnectionPoint(IID_IPropertyNotifySink, point.Put());
    return FAILED(found) ? found : point->Unadvise(cookie);
}

void CheckAnswers(Report& report, const ControlBench& bench, const QuickCall& call) {
    const QACONTROL& answer = call.control;
    report.Expect("quick: cbSize stays", ULONG{sizeof(QACONTROL)}, answer.cbSize);
    DWORD status = 0;
    static_cast<void>(bench.As<IOleObject>()->GetMiscStatus(DVASPECT_CONTENT, &status));
    report.Expect("quick: dwMiscStatus has the bits of an embedded control", fw::ControlMiscStatus,
                  answer.dwMiscStatus);
    report.Expect("quick: dwMiscStatus is that of IOleObject::GetMiscStatus", status, answer.dwMiscStatus);
    static_cast<void>(bench.As<IViewObjectEx>()->GetViewStatus(&status));
    report.Expect("quick: dwViewStatus is that of IViewObjectEx::GetViewStatus", status, answer.dwViewStatus);
    report.Expect("quick: dwPointerActivationPolicy is cleared", DWORD{0}, answer.dwPointerActivationPolicy);
    report.Expect("quick: dwEventCookie stands for a connection", S_OK,
                  bench.Disconnect(answer.dwEventCookie));
    report.Expect("quick: dwPropNotifyCookie stands for a connection", S_OK,
                  DisconnectNotices(bench, answer.dwPropNotifyCookie));
}

void CheckTaken(Report& report, ControlBench& bench, const QuickCall& call) {
    report.Expect("quick: pClientSite becomes the site", true, IsSiteOf(bench));
    DWORD aspects = 0;
    fw::ComPtr<IAdviseSink> sink;
    static_cast<void>(bench.As<IViewObjectEx>()->GetAdvise(&aspects, nullptr, sink.Put()));
    report.Expect("quick: pAdviseSink hears of the view", true,
                  sink.Get() == static_cast<IAdviseSink*>(call.notices.Get()));
    report.Expect("quick: pAdviseSink hears of the content", DWORD{DVASPECT_CONTENT}, aspects);
    static_cast<void>(bench.As<IOleControl>()->OnAmbientPropertyChange(DISPID_UNKNOWN));
    OLE_COLOR color = 0;
    static_cast<void>(bench.control->get_ForeColor(&color));
    report.Expect("quick: colorFore counts where the site has none", call.container.colorFore, color);
    static_cast<void>(bench.control->get_BackColor(&color));
    report.Expect("quick: colorBack counts where the site has none", call.container.colorBack, color);
    fw::ComPtr<IUnknown> font;
    static_cast<void>(bench.control->get_Font(font.Put()));
    report.Expect("quick: pFont counts where the site has none", true,
                  fw::IsSameObject(font.Get(), call.font.Get()));
}

void CheckEmptyFields(Report& report, const TestedModule& module, const kvtest::ClassRow& row) {
    ControlBench bench(module, *row.id);
    QuickCall call(bench);
    call.container = {};
    call.container.cbSize = sizeof call.container;
    call.container.pClientSite = bench.site.Get();
    report.Expect("quick: a container with a site alone is served", S_OK, call.Do(bench));
    report.Expect("quick: no event sink gives no cookie", DWORD{0}, call.control.dwEventCookie);
    report.Expect("quick: no property sink gives no cookie", DWORD{0}, call.control.dwPropNotifyCookie);
    OLE_COLOR before = 0;
    OLE_COLOR after = 0;
    static_cast<void>(bench.control->get_ForeColor(&before));
    static_cast<void>(bench.As<IOleControl>()->OnAmbientPropertyChange(DISPID_FORECOLOR));
    static_cast<void>(bench.control->get_ForeColor(&after));
    report.Expect("quick: colours that nobody filled in are not taken", before, after);
    call.container.pUnkEventSink = static_cast<IOleClientSite*>(bench.site.Get());
    report.Expect("quick: a sink of another kind does not hinder the activation", S_OK, call.Do(bench));
    report.Expect("quick: a sink of another kind gives no cookie", DWORD{0}, call.control.dwEventCookie);
}

void CheckBadRecords(Report& report, const TestedModule& module, const kvtest::ClassRow& row) {
    ControlBench bench(module, *row.id);
    QuickCall call(bench);
    const auto quick = bench.As<IQuickActivate>();
    report.Expect("quick: no container record is refused", E_POINTER,
                  quick->QuickActivate(nullptr, &call.control));
    report.Expect("quick: no control record is refused", E_POINTER,
                  quick->QuickActivate(&call.container, nullptr));
    call.container.cbSize = 8;
    report.Expect("quick: a short container record is refused", E_INVALIDARG, call.Do(bench));
    call.container.cbSize = sizeof call.container;
    call.control.cbSize = 8;
    report.Expect("quick: a short control record is refused", E_INVALIDARG, call.Do(bench));
    report.Expect("quick: a refused call sets no site", false, IsSiteOf(bench));
    report.Expect("quick: a refused call holds no sink", ULONG{1}, call.events->References());
}

void CheckContentExtent(Report& report, const ControlBench& bench) {
    SIZEL extent{1234, 567};
    SIZEL read{};
    report.Expect("quick: SetContentExtent succeeds", S_OK,
                  bench.As<IQuickActivate>()->SetContentExtent(&extent));
    report.Expect("quick: GetContentExtent succeeds", S_OK,
                  bench.As<IQuickActivate>()->GetContentExtent(&read));
    report.Expect("quick: GetContentExtent gives what was set", extent, read);
    static_cast<void>(bench.As<IOleObject>()->GetExtent(DVASPECT_CONTENT, &read));
    report.Expect("quick: the content's extent is that of IOleObject::GetExtent", extent, read);
}

}  // namespace

void CheckQuickActivation(Report& report, const TestedModule& module, const kvtest::ClassRow& row) {
    {
        ControlBench bench(module, *row.id);
        QuickCall call(bench);
        report.Expect("quick: succeeds", S_OK, call.Do(bench));
        report.Expect("quick: calls nothing of the site", Lines{}, bench.TakeCalls());
        CheckTaken(report, bench, call);
        CheckAnswers(report, bench, call);
        CheckContentExtent(report, bench);
        bench.Discard();
        report.Expect("quick: the event sink is let go", ULONG{1}, call.events->References());
        report.Expect("quick: the notice sinks are let go", ULONG{1}, call.notices->References());
        report.Expect("quick: the site is let go", ULONG{1}, bench.site->References());
    }
    CheckEmptyFields(report, module, row);
    CheckBadRecords(report, module, row);
}

}  // namespace kvconform
