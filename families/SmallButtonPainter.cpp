#include "families/SmallButtonPainter.h"

#include "framework/base/DeviceContexts.h"
#include "framework/base/Handles.h"
#include "framework/base/Hresult.h"
#include "framework/window/CDC.h"

namespace {

// Of the dots, on a screen of plain dots per inch.
constexpr int c_dotsTop = 8;
constexpr int c_dotsLeft = 5;
constexpr int c_dotStep = 3;
constexpr int c_dotSize = 2;

constexpr int c_himetricPerInch = 2540;

}  // namespace

CRect SmallButtonPainter::DotRect(const RECT& bounds, int dot, int dotsPerInch) {
    const auto pixels = [&](int measure) { return ::MulDiv(measure, dotsPerInch, PlainDotsPerInch); };
    const CPoint corner(bounds.left + pixels(c_dotsLeft + dot * c_dotStep), bounds.top + pixels(c_dotsTop));
    return {corner, CSize(pixels(c_dotSize), pixels(c_dotSize))};
}

CRect SmallButtonPainter::FocusRect(const RECT& bounds, int inset) {
    CRect focus = bounds;
    focus.Inflate(-inset, -inset);
    return focus;
}

void SmallButtonPainter::DrawFace(HDC dc, const RECT& bounds, COLORREF face) {
    CDC(dc).FillSolidRect(bounds, face);
}

void SmallButtonPainter::DrawFrame(HDC dc, const RECT& bounds, COLORREF frame) {
    const fw::UniquePen pen(::CreatePen(PS_SOLID, 1, frame));
    const fw::ScopedSelect selectPen(dc, pen.Get());
    const fw::ScopedSelect selectBrush(dc, ::GetStockObject(NULL_BRUSH));
    ::Rectangle(dc, bounds.left, bounds.top, bounds.right, bounds.bottom);
}

void SmallButtonPainter::DrawEllipsis(HDC dc, const RECT& bounds) {
    constexpr int c_dots = 3;
    const int dotsPerInch = ::GetDeviceCaps(dc, LOGPIXELSX);
    for (int dot = 0; dot < c_dots; ++dot) {
        CDC(dc).FillSolidRect(DotRect(bounds, dot, dotsPerInch), RGB(0, 0, 0));
    }
}

CSize SmallButtonPainter::NaturalSize(IPicture* picture) {
    OLE_XSIZE_HIMETRIC width = 0;
    OLE_YSIZE_HIMETRIC height = 0;
    if (!picture || FAILED(picture->get_Width(&width)) || FAILED(picture->get_Height(&height))) {
        return {};
    }
    const fw::WindowDc screen(nullptr);
    return {::MulDiv(static_cast<int>(width), ::GetDeviceCaps(screen, LOGPIXELSX), c_himetricPerInch),
            ::MulDiv(static_cast<int>(height), ::GetDeviceCaps(screen, LOGPIXELSY), c_himetricPerInch)};
}

void SmallButtonPainter::DrawPicture(HDC dc, const CPoint& origin, IPicture* picture, CSize size) {
    OLE_XSIZE_HIMETRIC width = 0;
    OLE_YSIZE_HIMETRIC height = 0;
    if (!picture || FAILED(picture->get_Width(&width)) || FAILED(picture->get_Height(&height))) {
        return;
    }
    // A picture's own coordinates run upwards. What cannot be drawn leaves the face empty.
    fw::Ignore(picture->Render(dc, origin.x, origin.y, size.cx, size.cy, 0, height, width, -height, nullptr));
}
