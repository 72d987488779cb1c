#pragma once

#include "framework/base/WindowsApi.h"
#include "palette/window/ToolStrip.h"

namespace kvpalette {

/// Paints a button's picture, 16 pixels square, with its upper left corner at the given place.
void PaintToolPicture(HDC dc, POINT place, ToolStrip::Picture picture, COLORREF color, COLORREF accent);

}  // namespace kvpalette
