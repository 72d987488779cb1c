#include "benchmarks/ControlModule.h"
#include "benchmarks/Drawing.h"
#include "benchmarks/PaletteRow.h"
#include "benchmarks/Workloads.h"
#include "framework/window/CWnd.h"
#include "tests/support/MessagePump.h"

namespace kvbench {
namespace {

constexpr int c_rows = 200;
constexpr LONG c_rowHeight = PaletteRow::c_height;

}  // namespace

// The floor is a bare window a row.
void MeasurePalette(std::vector<Figure>& figures) {
    static const fw::WindowClass s_frameClass{.name = L"KvBenchPalette"};
    const ControlModule module;
    const std::vector<ReadyClass> classes = module.ReadyClasses();
    CWnd frame;
    frame.Create(s_frameClass, L"bench", WS_POPUP | WS_VISIBLE, {50, 50, 450, 350}, nullptr);

    const auto makeAndEnd = [&] {
        std::vector<PaletteRow> rows;
        for (int index = 0; index < c_rows; ++index) {
            rows.emplace_back(*classes[static_cast<std::size_t>(index) % classes.size()].factory.Get());
            rows.back().Show(frame, index);
        }
        for (PaletteRow& row : rows) {
            row.End();
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
