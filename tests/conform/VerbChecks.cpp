// The verbs that a control offers, and what each does with its window.

#include "tests/conform/Checks.h"
#include "tests/conform/ControlBench.h"

namespace kvconform {
namespace {

Lines VerbsOf(const ControlBench& bench) {
    fw::ComPtr<IEnumOLEVERB> verbs;
    if (FAILED(bench.As<IOleObject>()->EnumVerbs(verbs.Put())) || !verbs) {
        return {};
    }
    Lines names;
    OLEVERB verb{};
    while (verbs->Next(1, &verb, nullptr) == S_OK) {
        names.push_back(std::to_string(verb.lVerb) + " " + ToText(verb.lpszVerbName));
        ::CoTaskMemFree(verb.lpszVerbName);
    }
    return names;
}

bool IsShown(const ControlBench& bench) {
    return ::IsWindowVisible(bench.Row()) != FALSE;
}

void CheckVerb(Report& report, const TestedModule& module, const kvtest::ClassRow& row, LONG verb,
               const char* name, bool isForUser) {
    ControlBench bench(module, *row.id);
    bench.GiveSite();
    const std::string rule = std::string("verbs: ") + name;
    report.Expect(rule + " succeeds", S_OK, bench.DoVerb(verb));
    report.Expect(rule + " shows the control", true, IsShown(bench));
    report.Expect(rule + (isForUser ? " activates for the user" : " does not activate for the user"),
                  isForUser, bench.site->isUIActive);
}

}  // namespace

void CheckVerbs(Report& report, const TestedModule& module, const kvtest::ClassRow& row) {
    CheckVerb(report, module, row, OLEIVERB_PRIMARY, "primary", true);
    CheckVerb(report, module, row, OLEIVERB_SHOW, "show", false);
    CheckVerb(report, module, row, OLEIVERB_OPEN, "open", false);
    CheckVerb(report, module, row, OLEIVERB_UIACTIVATE, "activate for the user", true);
    CheckVerb(report, module, row, OLEIVERB_INPLACEACTIVATE, "activate in place", false);

    ControlBench bench(module, *row.id);
    report.Expect("verbs: the list",
                  Lines{"0 Primary", "-1 Show", "-2 Open", "-3 Hide", "-4 UIActivate", "-5 InPlaceActivate"},
                  VerbsOf(bench));
    bench.GiveSite();
    static_cast<void>(bench.DoVerb(OLEIVERB_UIACTIVATE));
    report.Expect("verbs: hide succeeds", S_OK, bench.DoVerb(OLEIVERB_HIDE));
    report.Expect("verbs: hide takes the control out of sight", false, IsShown(bench));
    report.Expect("verbs: hide ends the activation for the user", false, bench.site->isUIActive);
    report.Expect("verbs: hide leaves the control active in place", true, bench.site->isActive);
    report.Expect("verbs: show after hide succeeds", S_OK, bench.DoVerb(OLEIVERB_SHOW));
    report.Expect("verbs: show after hide shows the control", true, IsShown(bench));
    report.Expect("verbs: discarding the undo state succeeds", S_OK, bench.DoVerb(OLEIVERB_DISCARDUNDOSTATE));
    report.Expect("verbs: an unknown verb of the system is refused", E_NOTIMPL, bench.DoVerb(-99));
    report.Expect("verbs: an unknown verb of its own counts as the primary one", OLEOBJ_S_INVALIDVERB,
                  bench.DoVerb(99));
}

}  // namespace kvconform
