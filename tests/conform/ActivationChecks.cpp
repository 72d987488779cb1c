// Both ways to bring a control to life in its container: the calls that its site gets, in their order.

#include "tests/conform/Checks.h"
#include "tests/conform/ControlBench.h"

namespace kvconform {
namespace {

const Lines c_inPlace = {"Site.CanInPlaceActivate",  "Site.OnInPlaceActivate", "Site.GetWindow",
                         "Site.GetWindowContext 32", "Site.Ambient -701",      "Site.Ambient -2000",
                         "Site.Ambient -704",        "Site.Ambient -2001",     "Site.Ambient -703",
                         "Site.ShowObject"};
const Lines c_userInterface = {"Site.GetWindow", "Site.GetWindowContext 32",      "Site.OnUIActivate",
                               "Site.OnFocus 1", "Frame.SetActiveObject control", "Frame.SetBorderSpace null",
                               "Site.ShowObject"};
const Lines c_userInterfaceAgain = {"Site.GetWindow", "Site.GetWindowContext 32", "Site.ShowObject"};

RECT PlaceOf(HWND window) {
    RECT place{};
    ::GetWindowRect(window, &place);
    ::MapWindowPoints(nullptr, ::GetParent(window), reinterpret_cast<POINT*>(&place), 2);
    return place;
}

void CheckEnd(Report& report, ControlBench& bench) {
    const HWND row = bench.Row();
    report.Expect("activation: UIDeactivate succeeds", S_OK, bench.As<IOleInPlaceObject>()->UIDeactivate());
    // The focus may go with the edit's window, of which the site may be told.
    Lines calls = bench.TakeCalls();
    std::erase(calls, std::string("Site.OnFocus 0"));
    std::erase(calls, std::string("Site.OnFocus 1"));
    report.Expect("activation: UIDeactivate tells frame and site in this order",
                  Lines{"Frame.SetActiveObject null", "Site.OnUIDeactivate 0"}, calls);
    report.Expect("activation: UIDeactivate leaves the window", true, ::IsWindow(row) != FALSE);
    report.Expect("activation: Close succeeds", S_OK, bench.As<IOleObject>()->Close(OLECLOSE_NOSAVE));
    calls = bench.TakeCalls();
    std::erase(calls, std::string("Site.OnFocus 0"));
    report.Expect("activation: Close tells the site that the control is no longer active",
                  Lines{"Site.OnInPlaceDeactivate"}, calls);
    report.Expect("activation: Close takes the window away", false, ::IsWindow(row) != FALSE);
    report.Expect("activation: SetClientSite(null) succeeds", S_OK,
                  bench.As<IOleObject>()->SetClientSite(nullptr));
    report.Expect("activation: a control without a site calls nobody", Lines{}, bench.TakeCalls());
    report.Expect("activation: the site is let go", ULONG{1}, bench.site->References());
}

void CheckRefusal(Report& report, const TestedModule& module, const kvtest::ClassRow& row) {
    ControlBench bench(module, *row.id);
    report.Expect("activation: without a site it is refused", OLE_E_NOT_INPLACEACTIVE,
                  bench.DoVerb(OLEIVERB_UIACTIVATE));
    bench.GiveSite();
    bench.site->canInPlaceActivate = S_FALSE;
    report.Expect("activation: a site's refusal is handed on", true,
                  FAILED(bench.DoVerb(OLEIVERB_INPLACEACTIVATE)));
    report.Expect("activation: a site that refuses is asked nothing more", Lines{"Site.CanInPlaceActivate"},
                  bench.TakeCalls());
    report.Expect("activation: a refused control has no window", true, bench.Row() == nullptr);
    bench.site->canInPlaceActivate = S_OK;
    bench.site->windowContextResult = E_UNEXPECTED;
    report.Expect("activation: without a window context it fails", E_UNEXPECTED,
                  bench.DoVerb(OLEIVERB_INPLACEACTIVATE));
    report.Expect("activation: a failed activation is taken back",
                  Lines{"Site.CanInPlaceActivate", "Site.OnInPlaceActivate", "Site.GetWindow",
                        "Site.GetWindowContext 32", "Site.OnInPlaceDeactivate"},
                  bench.TakeCalls());
}

}  // namespace

void CheckClassicActivation(Report& report, const TestedModule& module, const kvtest::ClassRow& row) {
    ControlBench bench(module, *row.id);
    report.Expect("activation: SetClientSite succeeds", S_OK,
                  bench.As<IOleObject>()->SetClientSite(bench.site.Get()));
    report.Expect("activation: SetClientSite calls nothing of the site", Lines{}, bench.TakeCalls());
    fw::ComPtr<IOleClientSite> given;
    static_cast<void>(bench.As<IOleObject>()->GetClientSite(given.Put()));
    report.Expect("activation: GetClientSite gives the site back", true,
                  given.Get() == static_cast<IOleClientSite*>(bench.site.Get()));
    given.Reset();

    report.Expect("activation: in place succeeds", S_OK, bench.DoVerb(OLEIVERB_INPLACEACTIVATE));
    report.Expect("activation: in place calls the site in this order", c_inPlace, bench.TakeCalls());
    report.Expect("activation: in place makes a visible window", true,
                  ::IsWindowVisible(bench.Row()) != FALSE);
    report.Expect("activation: the window lies where the site said", ControlBench::c_place,
                  PlaceOf(bench.Row()));
    report.Expect("activation: in place again calls no more than it needs", c_userInterfaceAgain,
                  (static_cast<void>(bench.DoVerb(OLEIVERB_INPLACEACTIVATE)), bench.TakeCalls()));

    report.Expect("activation: for the user succeeds", S_OK, bench.DoVerb(OLEIVERB_UIACTIVATE));
    report.Expect("activation: for the user calls site and frame in this order", c_userInterface,
                  bench.TakeCalls());
    const HWND focus = ::GetFocus();
    report.Expect("activation: for the user brings the focus into the control", true,
                  focus == bench.Row() || ::IsChild(bench.Row(), focus) != FALSE);
    report.Expect("activation: for the user again only places the control", c_userInterfaceAgain,
                  (static_cast<void>(bench.DoVerb(OLEIVERB_UIACTIVATE)), bench.TakeCalls()));
    CheckEnd(report, bench);
    CheckRefusal(report, module, row);
}

}  // namespace kvconform
