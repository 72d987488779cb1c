#pragma once

#include "framework/base/WindowsApi.h"

// A point in pixels.
struct CPoint : POINT {
    CPoint() : POINT{0, 0} {}
    CPoint(LONG pointX, LONG pointY) : POINT{pointX, pointY} {}
    CPoint(const POINT& point) : POINT(point) {}
    // From the coordinates of a mouse message, which are signed.
    explicit CPoint(LPARAM packed)
        : POINT{static_cast<short>(LOWORD(packed)), static_cast<short>(HIWORD(packed))} {}

    LPARAM Packed() const { return MAKELPARAM(x, y); }
    void Offset(LONG dx, LONG dy) {
        x += dx;
        y += dy;
    }
};

inline bool operator==(const CPoint& left, const CPoint& right) {
    return left.x == right.x && left.y == right.y;
}

// A width and a height in pixels.
struct CSize : SIZE {
    CSize() : SIZE{0, 0} {}
    CSize(LONG width, LONG height) : SIZE{width, height} {}
    CSize(const SIZE& size) : SIZE(size) {}
};

inline bool operator==(const CSize& left, const CSize& right) {
    return left.cx == right.cx && left.cy == right.cy;
}

// A rectangle in pixels; right and bottom lie outside.
struct CRect : RECT {
    CRect() : RECT{0, 0, 0, 0} {}
    CRect(LONG leftX, LONG topY, LONG rightX, LONG bottomY) : RECT{leftX, topY, rightX, bottomY} {}
    CRect(const RECT& rectangle) : RECT(rectangle) {}
    CRect(const CPoint& topLeft, const CSize& size)
        : RECT{topLeft.x, topLeft.y, topLeft.x + size.cx, topLeft.y + size.cy} {}

    LONG Width() const { return right - left; }
    LONG Height() const { return bottom - top; }
    CSize Size() const { return {Width(), Height()}; }
    CPoint TopLeft() const { return {left, top}; }
    CPoint BottomRight() const { return {right, bottom}; }
    bool IsEmpty() const { return ::IsRectEmpty(this) != FALSE; }
    bool Contains(const POINT& point) const { return ::PtInRect(this, point) != FALSE; }

    void Offset(LONG dx, LONG dy) { ::OffsetRect(this, static_cast<int>(dx), static_cast<int>(dy)); }
    void Inflate(LONG dx, LONG dy) { ::InflateRect(this, static_cast<int>(dx), static_cast<int>(dy)); }
    void MoveTo(LONG leftX, LONG topY) { Offset(leftX - left, topY - top); }

    CRect Intersection(const RECT& other) const {
        CRect common;
        ::IntersectRect(&common, this, &other);
        return common;
    }
};

inline bool operator==(const CRect& left, const CRect& right) {
    return ::EqualRect(&left, &right) != FALSE;
}
