// Connection points and the walk over the connected sinks.

#include "tests/conform/Checks.h"
#include "tests/conform/ControlBench.h"
#include "tests/support/MessagePump.h"
#include "tests/support/NoticeSink.h"

namespace kvconform {
namespace {

using kvtest::RecordingSink;

Lines PointsOf(IConnectionPointContainer& container) {
    fw::ComPtr<IEnumConnectionPoints> points;
    Lines ids;
    if (FAILED(container.EnumConnectionPoints(points.Put()))) {
        return ids;
    }
    fw::ComPtr<IConnectionPoint> point;
    while (points->Next(1, point.Put(), nullptr) == S_OK) {
        IID id{};
        static_cast<void>(point->GetConnectionInterface(&id));
        ids.push_back(ToText(id));
    }
    std::ranges::sort(ids);
    return ids;
}

std::size_t CountConnections(IConnectionPoint& point) {
    fw::ComPtr<IEnumConnections> connections;
    std::size_t count = 0;
    CONNECTDATA data{};
    if (SUCCEEDED(point.EnumConnections(connections.Put()))) {
        while (connections->Next(1, &data, nullptr) == S_OK) {
            data.pUnk->Release();
            ++count;
        }
    }
    return count;
}

void CheckPoints(Report& report, const ControlBench& bench) {
    const auto container = bench.As<IConnectionPointContainer>();
    Lines expected = {ToText(__uuidof(IKvPiPropertyEditEventsSink2)), ToText(IID_IPropertyNotifySink)};
    std::ranges::sort(expected);
    report.Expect("connections: the points", expected, PointsOf(*container.Get()));
    fw::ComPtr<IConnectionPoint> point;
    report.Expect("connections: there is no point for the first sink interface", CONNECT_E_NOCONNECTION,
                  container->FindConnectionPoint(__uuidof(IKvPiPropertyEditEventsSink), point.Put()));
    if (!report.Expect("connections: the point of the events is found", S_OK,
                       container->FindConnectionPoint(__uuidof(IKvPiPropertyEditEventsSink2), point.Put()))) {
        return;
    }
    fw::ComPtr<IConnectionPointContainer> owner;
    static_cast<void>(point->GetConnectionPointContainer(owner.Put()));
    report.Expect("connections: a point leads back to its control", true,
                  fw::IsSameObject(owner.Get(), bench.control.Get()));

    const auto notices = kvtest::NoticeSink::Make();
    DWORD cookie = 77;
    report.Expect("connections: a sink of another kind is refused", CONNECT_E_CANNOTCONNECT,
                  point->Advise(static_cast<IAdviseSink*>(notices.Get()), &cookie));
    report.Expect("connections: a refused sink gets no cookie", DWORD{0}, cookie);
    const auto old = RecordingSink::Make();
    old->answersSecondInterface = false;
    report.Expect("connections: a sink of the first interface alone is refused", CONNECT_E_CANNOTCONNECT,
                  point->Advise(old.Get(), &cookie));
    report.Expect("connections: an unknown cookie is refused", CONNECT_E_NOCONNECTION, point->Unadvise(4711));
    const auto sink = RecordingSink::Make();
    static_cast<void>(point->Advise(sink.Get(), &cookie));
    DWORD second = 0;
    static_cast<void>(point->Advise(sink.Get(), &second));
    report.Expect("connections: the same sink may connect twice, with two cookies", true,
                  cookie != 0 && second != 0 && cookie != second);
    report.Expect("connections: both are listed", DWORD{2},
                  static_cast<DWORD>(CountConnections(*point.Get())));
    report.Expect("connections: Unadvise succeeds", S_OK, point->Unadvise(cookie));
    report.Expect("connections: Unadvise a second time is refused", CONNECT_E_NOCONNECTION,
                  point->Unadvise(cookie));
    report.Expect("connections: Unadvise leaves the other", S_OK, point->Unadvise(second));
    report.Expect("connections: a sink that left is let go", ULONG{1}, sink->References());
}

void CheckWalk(Report& report, const TestedModule& module, const kvtest::ClassRow& row) {
    ControlBench bench(module, *row.id);
    bench.GiveSite();
    static_cast<void>(bench.DoVerb(OLEIVERB_INPLACEACTIVATE));
    const auto first = RecordingSink::Make(L"first");
    const auto second = RecordingSink::Make(L"second");
    const DWORD firstCookie = bench.Connect(first.Get());
    const DWORD secondCookie = bench.Connect(second.Get());
    const auto press = [&] {
        static_cast<void>(bench.TakeCalls());
        bench.PressDown();
        return bench.TakeCalls();
    };
    const Lines both = {"first.OnKeyDown 40 1", "second.OnKeyDown 40 1"};
    report.Expect("events: sinks are called in the order of their connection", both, press());

    first->answersSecondInterface = false;
    report.Expect("events: a sink that no longer answers the query is left out",
                  Lines{"second.OnKeyDown 40 1"}, press());
    first->answersSecondInterface = true;

    DWORD thirdCookie = 0;
    const auto third = RecordingSink::Make(L"second.third");
    first->onEvent = [&](const std::wstring&) {
        thirdCookie = bench.Connect(third.Get());
        return S_OK;
    };
    report.Expect("events: a sink that comes inside an event does not hear of it", both, press());
    first->onEvent = nullptr;
    report.Expect("events: it hears of the next one", Lines{both[0], both[1], "second.third.OnKeyDown 40 1"},
                  press());
    static_cast<void>(bench.Disconnect(thirdCookie));

    first->onEvent = [&](const std::wstring&) {
        static_cast<void>(bench.Disconnect(secondCookie));
        return bench.Disconnect(firstCookie);
    };
    report.Expect("events: sinks that go inside an event still hear of that one", both, press());
    first->onEvent = nullptr;
    report.Expect("events: sinks that have gone hear of nothing", Lines{}, press());
    report.Expect("events: a sink that has gone is let go", ULONG{1}, second->References());
}

// The container lets the row go completely in the middle of what the row tells.
void CheckEndInEvent(Report& report, const TestedModule& module, const kvtest::ClassRow& row) {
    ControlBench bench(module, *row.id);
    bench.GiveSite();
    static_cast<void>(bench.DoVerb(OLEIVERB_INPLACEACTIVATE));
    const auto sink = RecordingSink::Make();
    const DWORD cookie = bench.Connect(sink.Get());
    sink->onEvent = [&](const std::wstring&) {
        static_cast<void>(bench.Disconnect(cookie));
        bench.Discard();
        return S_OK;
    };
    const HWND window = bench.Row();
    bench.PressDown();
    kvtest::PumpWaiting();
    report.Expect("events: a control that is let go inside an event ends", false,
                  ::IsWindow(window) != FALSE);
    report.Expect("events: its sink is let go", ULONG{1}, sink->References());
    report.Expect("events: its site is let go", ULONG{1}, bench.site->References());
    report.Expect("events: nothing of it keeps the module", S_OK, module.CanUnloadNow());
}

void CheckNotices(Report& report, const ControlBench& bench) {
    const auto notices = kvtest::NoticeSink::Make();
    const auto view = bench.As<IViewObjectEx>();
    report.Expect("notices: a view sink is taken", S_OK, view->SetAdvise(DVASPECT_CONTENT, 0, notices.Get()));
    fw::ComPtr<IAdviseSink> sink;
    static_cast<void>(view->GetAdvise(nullptr, nullptr, sink.Put()));
    report.Expect("notices: the view sink is given back", true,
                  sink.Get() == static_cast<IAdviseSink*>(notices.Get()));
    sink.Reset();
    report.Expect("notices: a null view sink takes it out", S_OK,
                  view->SetAdvise(DVASPECT_CONTENT, 0, nullptr));
    DWORD cookie = 0;
    const auto object = bench.As<IOleObject>();
    report.Expect("notices: a sink of the object is taken", S_OK, object->Advise(notices.Get(), &cookie));
    report.Expect("notices: the sink's cookie is none of zero", true, cookie != 0);
    report.Expect("notices: the sink's cookie takes it out", S_OK, object->Unadvise(cookie));
    report.Expect("notices: a cookie counts once", true, FAILED(object->Unadvise(cookie)));
    report.Expect("notices: sinks that left are let go", ULONG{1}, notices->References());
}

}  // namespace

void CheckConnections(Report& report, const TestedModule& module, const kvtest::ClassRow& row) {
    {
        const ControlBench bench(module, *row.id);
        CheckPoints(report, bench);
        CheckNotices(report, bench);
    }
    CheckWalk(report, module, row);
    CheckEndInEvent(report, module, row);
}

}  // namespace kvconform
