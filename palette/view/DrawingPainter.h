#pragma once

#include <map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "framework/base/Handles.h"
#include "palette/view/DisplayList.h"
#include "palette/view/ViewTransform.h"

namespace kvpalette {

/// Paints shapes into a context: what lies outside is left out, what is too small to see becomes a pixel.
class DrawingPainter {
public:
    DrawingPainter(HDC dc, const ViewTransform& transform) : m_dc(dc), m_transform(transform) {}

    void PaintGround();
    /// The highlighted ones are painted over the others.
    void PaintShapes(const std::vector<Shape>& shapes, const std::unordered_set<std::uint64_t>& highlighted);
    /// Small squares on the corners of a shape; one in its middle when it has many parts.
    void PaintGrips(const Shape& shape);

private:
    void PaintGridLines(double spacing, bool vertical, COLORREF color);
    void PaintShape(const Shape& shape, COLORREF color, int width);
    void PaintPath(const Shape::Path& path, int width);
    void PaintText(const Shape::Text& text, COLORREF color);
    void PaintDot(const kvhost::Point3& dot, COLORREF color, int width);
    HPEN PenFor(COLORREF color, int width);
    HFONT FontFor(int height, int angle);
    POINT ToPixel(const kvhost::Point3& point) const;

    HDC m_dc;
    const ViewTransform& m_transform;
    std::map<std::pair<COLORREF, int>, fw::UniquePen> m_pens;
    std::map<std::pair<int, int>, fw::UniqueFont> m_fonts;
    std::vector<POINT> m_pixels;
};

}  // namespace kvpalette
