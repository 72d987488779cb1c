#pragma once

#include "framework/base/WindowsApi.h"
#include "framework/window/Geometry.h"

/// Draws the faces of a row's small buttons, without a window or a host.
class SmallButtonPainter {
public:
    static constexpr int FocusInset = 2;
    static constexpr int PlainDotsPerInch = 96;

    /// One of the three dots of a button without a picture, which grow with the screen's dots per inch.
    static CRect DotRect(const RECT& bounds, int dot, int dotsPerInch);
    static CRect FocusRect(const RECT& bounds, int inset);

    static void DrawFace(HDC dc, const RECT& bounds, COLORREF face);
    static void DrawFrame(HDC dc, const RECT& bounds, COLORREF frame);
    static void DrawEllipsis(HDC dc, const RECT& bounds);
    /// In the picture's own size, in pixels. A null picture draws nothing.
    static void DrawPicture(HDC dc, const CPoint& origin, IPicture* picture, CSize size);

    /// Size of a picture in pixels of the screen; empty for none.
    static CSize NaturalSize(IPicture* picture);
};
