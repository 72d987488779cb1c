#include <string_view>

#include "benchmarks/ControlModule.h"
#include "benchmarks/Drawing.h"
#include "benchmarks/Workloads.h"
#include "core/ClassIds.h"
#include "framework/base/Hresult.h"
#include "framework/window/CWnd.h"
#include "tests/support/FakeSite.h"
#include "tests/support/MessagePump.h"

namespace kvbench {
namespace {

constexpr int c_rows = 200;
constexpr LONG c_rowHeight = 20;

struct ControlClass {
    const CLSID* id;
    std::string_view state;
};

constexpr ControlClass c_classes[] = {
#define KVPE_CLASS(coclass, version, classId, implementation, state, description, interfaces) \
    {&CLSID_##coclass, #state},
#include "core/ClassList.inc"
#undef KVPE_CLASS
};

std::vector<fw::ComPtr<IClassFactory>> FactoriesOf(const ControlModule& module) {
    std::vector<fw::ComPtr<IClassFactory>> factories;
    for (const ControlClass& controlClass : c_classes) {
        if (controlClass.state == "READY") {
            factories.push_back(module.FactoryOf(*controlClass.id));
        }
    }
    return factories;
}

/// One row of the palette with its place in it.
struct Row {
    fw::ComPtr<IOleObject> control;
    fw::ComPtr<kvtest::FakeSite> site;
};

Row MakeRow(IClassFactory& factory, HWND frame, int index) {
    Row row;
    const RECT place{0, index * c_rowHeight, 180, (index + 1) * c_rowHeight};
    Require(factory.CreateInstance(nullptr, IID_IOleObject, row.control.PutVoid()) == S_OK,
            "the class factory makes a control");
    row.site = kvtest::FakeSite::Make(frame, place);
    Require(
        row.control->SetClientSite(row.site.Get()) == S_OK &&
            row.control->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, row.site.Get(), 0, frame, &place) == S_OK,
        "a row is shown");
    return row;
}

void EndRow(Row& row) {
    Require(row.control->Close(OLECLOSE_NOSAVE) == S_OK && row.control->SetClientSite(nullptr) == S_OK,
            "a row ends");
}

}  // namespace

// The floor is a bare window a row.
void MeasurePalette(std::vector<Figure>& figures) {
    static const fw::WindowClass s_frameClass{.name = L"KvBenchPalette"};
    const ControlModule module;
    const std::vector<fw::ComPtr<IClassFactory>> factories = FactoriesOf(module);
    CWnd frame;
    frame.Create(s_frameClass, L"bench", WS_POPUP | WS_VISIBLE, {50, 50, 450, 350}, nullptr);

    const auto makeAndEnd = [&] {
        std::vector<Row> rows;
        for (int index = 0; index < c_rows; ++index) {
            IClassFactory* const factory =
                factories[static_cast<std::size_t>(index) % factories.size()].Get();
            rows.push_back(MakeRow(*factory, frame, index));
        }
        for (Row& row : rows) {
            EndRow(row);
        }
    };
    const auto makeAndEndWindows = [&] {
        std::vector<HWND> windows;
        for (int index = 0; index < c_rows; ++index) {
            windows.push_back(::CreateWindowExW(0, s_frameClass.name, L"", WS_CHILD | WS_VISIBLE, 0,
                                                index * c_rowHeight, 180, c_rowHeight, frame, nullptr,
                                                s_frameClass.Module(), nullptr));
            Require(windows.back() != nullptr, "the system makes a window");
        }
        for (const HWND window : windows) {
            ::DestroyWindow(window);
        }
    };
    figures.push_back(Measure("make and end a palette", c_rows, makeAndEnd, makeAndEndWindows,
                              [] { kvtest::PumpWaiting(); }));
    frame.DestroyWindow();
}

}  // namespace kvbench
