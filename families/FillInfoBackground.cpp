#include "families/FillInfoBackground.h"

#include "framework/window/CDC.h"

namespace {

constexpr int c_bands = 64;

LONG BandTop(const RECT& bounds, int band) {
    return bounds.top + band * (bounds.bottom - bounds.top) / c_bands;
}

// From white down to 218 in the last band.
COLORREF BandColor(int band) {
    constexpr int whiteTimesBands = 255 * c_bands;
    constexpr int step = 37;
    const int grey = (whiteTimesBands - step * band) / c_bands;
    return RGB(grey, grey, grey);
}

}  // namespace

void FillInfoBackground(HDC dc, const RECT& bounds, COLORREF color) {
    CDC target(dc);
    if (color != ::GetSysColor(COLOR_INFOBK)) {
        target.FillSolidRect(bounds, color);
        return;
    }
    for (int band = 0; band < c_bands; ++band) {
        const CRect rows(bounds.left, BandTop(bounds, band), bounds.right, BandTop(bounds, band + 1));
        if (rows.Height() > 0) {
            target.FillSolidRect(rows, BandColor(band));
        }
    }
}
