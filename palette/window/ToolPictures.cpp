#include "palette/window/ToolPictures.h"

#include <initializer_list>
#include <vector>

#include "framework/base/DeviceContexts.h"
#include "framework/base/Handles.h"
#include "palette/theme/Scale.h"

namespace kvpalette {

namespace {

// Strokes of a picture, in its own pixels.
class Pencil {
public:
    Pencil(HDC dc, POINT place) : m_dc(dc), m_place(place) {}

    void Use(COLORREF color) {
        m_pen.Reset();
        m_pen = fw::UniquePen(::CreatePen(PS_SOLID, Scaled(1), color));
        m_color = color;
    }
    void Line(std::initializer_list<POINT> points) {
        std::vector<POINT> moved;
        for (const POINT& point : points) {
            moved.push_back(Place(point.x, point.y));
        }
        const fw::ScopedSelect selected(m_dc, m_pen.Get());
        ::Polyline(m_dc, moved.data(), static_cast<int>(moved.size()));
        // The system leaves the last pixel of a line out.
        ::SetPixelV(m_dc, moved.back().x, moved.back().y, m_color);
    }
    void Box(LONG left, LONG top, LONG right, LONG bottom) {
        Line({{left, top}, {right, top}, {right, bottom}, {left, bottom}, {left, top}});
    }
    void Fill(LONG left, LONG top, LONG right, LONG bottom) {
        const POINT first = Place(left, top);
        const POINT end = Place(right, bottom);
        FillColor(m_dc, {first.x, first.y, end.x, end.y}, m_color);
    }

private:
    POINT Place(LONG x, LONG y) const {
        return {m_place.x + Scaled(static_cast<int>(x)), m_place.y + Scaled(static_cast<int>(y))};
    }

    HDC m_dc;
    POINT m_place;
    fw::UniquePen m_pen;
    COLORREF m_color = 0;
};

void PaintLens(Pencil& pencil) {
    pencil.Line({{5, 1}, {8, 1}, {11, 4}, {11, 7}, {8, 10}, {5, 10}, {2, 7}, {2, 4}, {5, 1}});
    pencil.Line({{10, 10}, {14, 14}});
    pencil.Line({{11, 10}, {14, 13}});
}

void PaintTurn(Pencil& pencil, bool toTheRight) {
    const auto at = [&](LONG x, LONG y) { return POINT{toTheRight ? 15 - x : x, y}; };
    pencil.Line({at(2, 6), at(10, 6), at(13, 8), at(13, 11), at(10, 13), at(6, 13)});
    pencil.Line({at(2, 7), at(10, 7), at(12, 8)});
    pencil.Line({at(6, 2), at(2, 6), at(6, 10)});
    pencil.Line({at(6, 3), at(3, 6), at(6, 9)});
}

}  // namespace

void PaintToolPicture(HDC dc, POINT place, ToolStrip::Picture picture, COLORREF color, COLORREF accent) {
    Pencil pencil(dc, place);
    pencil.Use(color);
    switch (picture) {
        case ToolStrip::Picture::Open:
            pencil.Line({{1, 13}, {1, 3}, {6, 3}, {7, 5}, {13, 5}, {13, 7}});
            pencil.Use(accent);
            pencil.Line({{1, 13}, {4, 7}, {15, 7}, {12, 13}, {1, 13}});
            break;
        case ToolStrip::Picture::Save:
            pencil.Line({{1, 1}, {12, 1}, {14, 3}, {14, 14}, {1, 14}, {1, 1}});
            pencil.Box(4, 1, 10, 5);
            pencil.Use(accent);
            pencil.Fill(4, 8, 12, 14);
            break;
        case ToolStrip::Picture::Undo:
            PaintTurn(pencil, false);
            break;
        case ToolStrip::Picture::Redo:
            PaintTurn(pencil, true);
            break;
        case ToolStrip::Picture::SelectAll:
            pencil.Box(3, 3, 12, 12);
            pencil.Use(accent);
            for (const LONG x : {1, 11}) {
                for (const LONG y : {1, 11}) {
                    pencil.Fill(x, y, x + 4, y + 4);
                }
            }
            break;
        case ToolStrip::Picture::ZoomExtents:
            PaintLens(pencil);
            pencil.Use(accent);
            pencil.Box(5, 4, 8, 7);
            break;
        case ToolStrip::Picture::ZoomIn:
            PaintLens(pencil);
            pencil.Use(accent);
            pencil.Line({{4, 5}, {9, 5}});
            pencil.Line({{6, 3}, {6, 8}});
            break;
        case ToolStrip::Picture::ZoomOut:
            PaintLens(pencil);
            pencil.Use(accent);
            pencil.Line({{4, 5}, {9, 5}});
            break;
        default:
            break;
    }
}

}  // namespace kvpalette
