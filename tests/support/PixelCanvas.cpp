#include "tests/support/PixelCanvas.h"

namespace kvtest {
namespace {

fw::UniqueBitmap MakeBitmap(int width, int height) {
    BITMAPINFO info{};
    info.bmiHeader = {.biSize = sizeof(BITMAPINFOHEADER),
                      .biWidth = width,
                      .biHeight = -height,
                      .biPlanes = 1,
                      .biBitCount = 32,
                      .biCompression = BI_RGB,
                      .biSizeImage = 0,
                      .biXPelsPerMeter = 0,
                      .biYPelsPerMeter = 0,
                      .biClrUsed = 0,
                      .biClrImportant = 0};
    void* bits = nullptr;
    return fw::UniqueBitmap(::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
}

}  // namespace

PixelCanvas::PixelCanvas(int width, int height)
    : m_dc(nullptr), m_bitmap(MakeBitmap(width, height)), m_selected(m_dc, m_bitmap.Get()) {
    ::PatBlt(m_dc, 0, 0, width, height, WHITENESS);
}

int PixelCanvas::Count(const RECT& bounds, COLORREF color) const {
    int count = 0;
    for (LONG y = bounds.top; y < bounds.bottom; ++y) {
        for (LONG x = bounds.left; x < bounds.right; ++x) {
            count += ::GetPixel(m_dc, static_cast<int>(x), static_cast<int>(y)) == color ? 1 : 0;
        }
    }
    return count;
}

}  // namespace kvtest
