#pragma once

#include "framework/base/DeviceContexts.h"
#include "framework/base/Handles.h"

namespace kvtest {

/// A memory picture to draw into and to look at, white at start.
class PixelCanvas {
public:
    PixelCanvas(int width, int height);

    [[nodiscard]] HDC Dc() const { return m_dc; }
    [[nodiscard]] COLORREF At(int x, int y) const { return ::GetPixel(m_dc, x, y); }
    /// Pixels of one colour inside the bounds.
    [[nodiscard]] int Count(const RECT& bounds, COLORREF color) const;

private:
    fw::MemoryDc m_dc;
    fw::UniqueBitmap m_bitmap;
    fw::ScopedSelect m_selected;
};

}  // namespace kvtest
