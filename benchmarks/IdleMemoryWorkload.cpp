#include <algorithm>

#include "benchmarks/ControlModule.h"
#include "benchmarks/PaletteRow.h"
#include "benchmarks/Workloads.h"
#include "framework/window/CWnd.h"
#include "tests/support/HeapBlocks.h"
#include "tests/support/LeakCheck.h"
#include "tests/support/MessagePump.h"

namespace kvbench {
namespace {

constexpr int c_rows = 200;

struct Use {
    kvtest::HeapUse heap;
    long gdiObjects = 0;
};

Use PresentUse() {
    kvtest::PumpWaiting();
    return {kvtest::MeasureHeaps(), kvtest::CountGdiObjects()};
}

Footprint PerRow(std::string workload, const Use& before, const Use& after) {
    const auto share = [](long long former, long long present) {
        return static_cast<double>(present - former) / c_rows;
    };
    return {std::move(workload), share(before.heap.bytes, after.heap.bytes),
            share(before.heap.blocks, after.heap.blocks), share(before.gdiObjects, after.gdiObjects)};
}

void MeasureClass(const ReadyClass& controlClass, HWND palette, std::vector<Footprint>& footprints) {
    // What is made once for all rows of a class is no part of a row.
    PaletteRow first(*controlClass.factory.Get());
    first.Show(palette, 0);
    std::vector<PaletteRow> rows;
    rows.reserve(c_rows);

    const Use before = PresentUse();
    for (int index = 0; index < c_rows; ++index) {
        rows.emplace_back(*controlClass.factory.Get());
    }
    const Use made = PresentUse();
    for (int index = 0; index < c_rows; ++index) {
        rows[static_cast<std::size_t>(index)].Show(palette, index);
    }
    const Use shown = PresentUse();
    for (PaletteRow& row : rows) {
        row.End();
    }
    first.End();
    footprints.push_back(PerRow(controlClass.name + ", made", before, made));
    footprints.push_back(PerRow(controlClass.name + ", shown", before, shown));
}

}  // namespace

void MeasureIdleMemory(std::vector<Footprint>& footprints) {
    static const fw::WindowClass s_paletteClass{.name = L"KvBenchIdlePalette"};
    const ControlModule module;
    CWnd palette;
    palette.Create(s_paletteClass, L"bench", WS_POPUP | WS_VISIBLE, {50, 50, 450, 350}, nullptr);
    for (const ReadyClass& controlClass : module.ReadyClasses()) {
        MeasureClass(controlClass, palette, footprints);
    }
    palette.DestroyWindow();
}

}  // namespace kvbench
