// What a control takes from its container: which properties it asks for, when, and what it makes of them.

#include "tests/conform/Checks.h"
#include "tests/conform/ControlBench.h"
#include "tests/conform/Fonts.h"

namespace kvconform {
namespace {

struct Colors {
    OLE_COLOR back = 0;
    OLE_COLOR fore = 0;
    OLE_COLOR readOnlyBack = 0;
    OLE_COLOR readOnlyFore = 0;
};

Colors ColorsOf(const ControlBench& bench) {
    Colors colors;
    static_cast<void>(bench.control->get_BackColor(&colors.back));
    static_cast<void>(bench.control->get_ForeColor(&colors.fore));
    static_cast<void>(bench.control->get_ReadOnlyBackColor(&colors.readOnlyBack));
    static_cast<void>(bench.control->get_ReadOnlyForeColor(&colors.readOnlyFore));
    return colors;
}

bool HasFont(const ControlBench& bench, IFont* expected) {
    fw::ComPtr<IUnknown> font;
    static_cast<void>(bench.control->get_Font(font.Put()));
    return fw::IsSameObject(font.Get(), expected);
}

void CheckQuestions(Report& report, const TestedModule& module, const kvtest::ClassRow& row) {
    ControlBench bench(module, *row.id);
    bench.GiveSite();
    const auto control = bench.As<IOleControl>();
    const auto ask = [&](DISPID id) {
        report.Expect("ambients: a change is taken note of", S_OK, control->OnAmbientPropertyChange(id));
        return bench.TakeCalls();
    };
    report.Expect("ambients: after a change of all it asks for font, fore and back colour",
                  Lines{"Site.Ambient -703", "Site.Ambient -704", "Site.Ambient -701"}, ask(DISPID_UNKNOWN));
    report.Expect("ambients: after a change of the font it asks for the font", Lines{"Site.Ambient -703"},
                  ask(DISPID_FONT));
    report.Expect("ambients: after a change of the fore colour it asks for that", Lines{"Site.Ambient -704"},
                  ask(DISPID_FORECOLOR));
    report.Expect("ambients: after a change of the back colour it asks for that", Lines{"Site.Ambient -701"},
                  ask(DISPID_BACKCOLOR));
    report.Expect("ambients: of other changes it takes no note", Lines{}, ask(DISPID_CAPTION));
}

void CheckValues(Report& report, const TestedModule& module, const kvtest::ClassRow& row) {
    ControlBench bench(module, *row.id);
    const fw::ComPtr<IFont> font = MakeFont();
    bench.site->ambients[DISPID_AMBIENT_BACKCOLOR] = fw::Variant::FromLong(0x111111);
    bench.site->ambients[DISPID_AMBIENT_FORECOLOR] = fw::Variant::FromLong(0x222222);
    bench.site->ambients[-2000] = fw::Variant::FromLong(0x333333);
    bench.site->ambients[-2001] = fw::Variant::FromLong(0x444444);
    bench.site->ambients[DISPID_AMBIENT_FONT] = fw::Variant::FromUnknown(font.Get());
    bench.GiveSite();
    const Colors before = ColorsOf(bench);
    static_cast<void>(bench.As<IOleControl>()->OnAmbientPropertyChange(DISPID_UNKNOWN));
    Colors colors = ColorsOf(bench);
    report.Expect("ambients: the back colour is taken", OLE_COLOR{0x111111}, colors.back);
    report.Expect("ambients: the fore colour is taken", OLE_COLOR{0x222222}, colors.fore);
    report.Expect("ambients: the font is taken", true, HasFont(bench, font.Get()));
    report.Expect("ambients: the read-only back colour waits for the window", before.readOnlyBack,
                  colors.readOnlyBack);
    static_cast<void>(bench.DoVerb(OLEIVERB_INPLACEACTIVATE));
    colors = ColorsOf(bench);
    report.Expect("ambients: the read-only back colour is taken with the window", OLE_COLOR{0x333333},
                  colors.readOnlyBack);
    report.Expect("ambients: the read-only fore colour is taken with the window", OLE_COLOR{0x444444},
                  colors.readOnlyFore);
}

// A site without values, one without the interface, and no site at all.
void CheckNoneOffered(Report& report, const TestedModule& module, const kvtest::ClassRow& row) {
    for (const char* kind : {"that knows none", "without ambient properties", "that is not there"}) {
        ControlBench bench(module, *row.id);
        bench.site->offersAmbients = kind != std::string("without ambient properties");
        if (kind != std::string("that is not there")) {
            bench.GiveSite();
        }
        const std::string rule = std::string("ambients: a site ") + kind;
        static_cast<void>(bench.control->put_BackColor(0x555555));
        static_cast<void>(bench.control->put_ForeColor(0x666666));
        report.Expect(rule + " is no failure", S_OK,
                      bench.As<IOleControl>()->OnAmbientPropertyChange(DISPID_UNKNOWN));
        const Colors colors = ColorsOf(bench);
        report.Expect(rule + " leaves the back colour", OLE_COLOR{0x555555}, colors.back);
        report.Expect(rule + " leaves the fore colour", OLE_COLOR{0x666666}, colors.fore);
        report.Expect(rule + " leaves the font", true, HasFont(bench, nullptr));
    }
    ControlBench bench(module, *row.id);
    bench.site->offersAmbients = false;
    bench.GiveSite();
    report.Expect("ambients: a control can be active without any", S_OK, bench.DoVerb(OLEIVERB_UIACTIVATE));
}

}  // namespace

void CheckAmbients(Report& report, const TestedModule& module, const kvtest::ClassRow& row) {
    CheckQuestions(report, module, row);
    CheckValues(report, module, row);
    CheckNoneOffered(report, module, row);

    const ControlBench bench(module, *row.id);
    CONTROLINFO info{};
    info.cAccel = 9;
    info.dwFlags = 7;
    const auto control = bench.As<IOleControl>();
    report.Expect("control information: it is given", S_OK, control->GetControlInfo(&info));
    report.Expect("control information: the size", ULONG{24}, info.cb);
    report.Expect("control information: no accelerators", true, info.hAccel == nullptr && info.cAccel == 0);
    report.Expect("control information: no flags", DWORD{0}, info.dwFlags);
    report.Expect("control information: a null pointer is refused", E_POINTER,
                  control->GetControlInfo(nullptr));
}

}  // namespace kvconform
