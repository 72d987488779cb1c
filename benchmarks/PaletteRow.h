#pragma once

#include "framework/com/ComPtr.h"
#include "tests/support/FakeSite.h"

namespace kvbench {

/// A control as a palette holds it.
class PaletteRow {
public:
    static constexpr LONG c_height = 20;

    explicit PaletteRow(IClassFactory& factory);
    PaletteRow(PaletteRow&&) noexcept = default;

    /// Makes the row's window, the one at that position from the top.
    void Show(HWND palette, int index);
    void End();

private:
    fw::ComPtr<IOleObject> m_control;
    fw::ComPtr<kvtest::FakeSite> m_site;
};

}  // namespace kvbench
