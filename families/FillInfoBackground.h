#pragma once

#include "core/Export.h"
#include "framework/base/WindowsApi.h"

/// Fills the ground of a list entry or a tip: one colour, but for the system's tip colour a gradient of greys
/// from top to bottom. Leaves the colours of the context as they are.
KVPEX_API void FillInfoBackground(HDC dc, const RECT& bounds, COLORREF color);
