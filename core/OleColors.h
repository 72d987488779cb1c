#pragma once

#include "framework/base/Handles.h"

/// The OLE colour that stands for a system colour (COLOR_WINDOW ...).
[[nodiscard]] constexpr OLE_COLOR SystemOleColor(int index) {
    return 0x80000000U | static_cast<OLE_COLOR>(index);
}

/// Black for what is no OLE colour.
[[nodiscard]] COLORREF ToColorRef(OLE_COLOR color);
[[nodiscard]] fw::UniqueBrush SolidBrush(OLE_COLOR color);
