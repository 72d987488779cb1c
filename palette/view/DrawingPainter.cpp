#include "palette/view/DrawingPainter.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

#include "framework/base/DeviceContexts.h"
#include "palette/theme/Scale.h"
#include "palette/theme/Theme.h"
#include "refhost/db/TextLine.h"

namespace kvpalette {

namespace {

constexpr int c_gridPixels = 48;
constexpr int c_plainLineweight = 25;
constexpr int c_widestOfThin = 2;
constexpr int c_smallestText = 4;
constexpr int c_largestText = 2000;
constexpr int c_gripHalf = 2;
constexpr int c_gripDistance = 10;
constexpr std::size_t c_mostGrips = 24;
// Far away points would overflow the system's coordinates; what is that far outside is not seen anyway.
constexpr double c_farPixel = 1e6;

UINT AlignOf(double anchor) {
    return anchor == 0 ? TA_LEFT : anchor == 1 ? TA_RIGHT : TA_CENTER;
}

// A plain line is one pixel wide at every zoom, heavier ones in proportion.
int PixelsOf(int lineweight) {
    return std::max(1, (lineweight + c_plainLineweight / 2) / c_plainLineweight);
}

// 1, 2 or 5 times a power of ten, at least the given length.
double RoundSpacing(double least) {
    const double power = std::pow(10.0, std::floor(std::log10(least)));
    for (const double step : {1.0, 2.0, 5.0}) {
        if (power * step >= least) {
            return power * step;
        }
    }
    return power * 10;
}

}  // namespace

void DrawingPainter::PaintGround() {
    FillColor(m_dc, {0, 0, m_transform.Width(), m_transform.Height()}, theme::c_paper);
    const double spacing = RoundSpacing(Scaled(c_gridPixels) / m_transform.Scale());
    for (const bool vertical : {true, false}) {
        PaintGridLines(spacing, vertical, theme::c_paperGrid);
        PaintGridLines(spacing * 5, vertical, theme::c_paperAxis);
    }
}

void DrawingPainter::PaintGridLines(double spacing, bool vertical, COLORREF color) {
    const kvhost::Bounds visible = m_transform.Visible();
    const double first = vertical ? visible.left : visible.bottom;
    const double last = vertical ? visible.right : visible.top;
    const fw::ScopedSelect pen(m_dc, PenFor(color, 1));
    for (double at = std::ceil(first / spacing) * spacing; at <= last; at += spacing) {
        const int pixel = static_cast<int>(std::lround(vertical ? m_transform.ToX(at) : m_transform.ToY(at)));
        ::MoveToEx(m_dc, vertical ? pixel : 0, vertical ? 0 : pixel, nullptr);
        ::LineTo(m_dc, vertical ? pixel : m_transform.Width(), vertical ? m_transform.Height() : pixel);
    }
}

void DrawingPainter::PaintShapes(const std::vector<Shape>& shapes,
                                 const std::unordered_set<std::uint64_t>& highlighted) {
    const kvhost::Bounds visible = m_transform.Visible();
    const auto isVisible = [&](const kvhost::Bounds& bounds) {
        return bounds.left <= visible.right && bounds.right >= visible.left && bounds.bottom <= visible.top &&
               bounds.top >= visible.bottom;
    };
    const fw::ScopedSaveDc saved(m_dc);
    ::SelectObject(m_dc, ::GetStockObject(NULL_BRUSH));
    ::SetBkMode(m_dc, TRANSPARENT);
    std::vector<const Shape*> above;
    for (const Shape& shape : shapes) {
        if (!isVisible(shape.bounds)) {
            continue;
        }
        if (highlighted.contains(shape.id.handle())) {
            above.push_back(&shape);
        } else {
            PaintShape(shape, shape.color, PixelsOf(shape.lineweight));
        }
    }
    for (const Shape* const shape : above) {
        PaintShape(*shape, theme::c_highlight, PixelsOf(shape->lineweight) + 1);
    }
}

void DrawingPainter::PaintShape(const Shape& shape, COLORREF color, int width) {
    const double size =
        std::max(shape.bounds.right - shape.bounds.left, shape.bounds.top - shape.bounds.bottom) *
        m_transform.Scale();
    if (size < 1 && shape.dots.empty()) {
        const POINT pixel = ToPixel({shape.bounds.left, shape.bounds.bottom, 0});
        ::SetPixelV(m_dc, pixel.x, pixel.y, color);
        return;
    }
    const fw::ScopedSelect pen(m_dc, PenFor(color, width > c_widestOfThin ? width : 1));
    for (const Shape::Path& path : shape.paths) {
        PaintPath(path, width > c_widestOfThin ? 1 : width);
    }
    for (const Shape::Text& text : shape.texts) {
        PaintText(text, color);
    }
    for (const kvhost::Point3& dot : shape.dots) {
        PaintDot(dot, color, width);
    }
}

// Wide pens cost ten times as much as thin ones: two pixels are drawn as thin lines beside each other.
void DrawingPainter::PaintPath(const Shape::Path& path, int width) {
    m_pixels.clear();
    for (const kvhost::Point3& point : path.points) {
        const POINT pixel = ToPixel(point);
        if (m_pixels.empty() || m_pixels.back().x != pixel.x || m_pixels.back().y != pixel.y) {
            m_pixels.push_back(pixel);
        }
    }
    if (m_pixels.empty()) {
        return;
    }
    if (path.closed || m_pixels.size() == 1) {
        m_pixels.push_back(m_pixels.front());
    }
    for (int line = 0; line < width; ++line) {
        ::Polyline(m_dc, m_pixels.data(), static_cast<int>(m_pixels.size()));
        std::for_each(m_pixels.begin(), m_pixels.end(),
                      [&](POINT& pixel) { ++(line % 2 == 0 ? pixel.x : pixel.y); });
    }
}

void DrawingPainter::PaintText(const Shape::Text& text, COLORREF color) {
    const double height = text.height * m_transform.Scale();
    const POINT place = ToPixel(text.position);
    if (height > c_largestText) {
        return;
    }
    if (height < c_smallestText) {
        const double length = height * kvhost::c_characterWidth * static_cast<double>(text.content.size());
        const double x = length * std::cos(text.rotation);
        const double y = length * std::sin(text.rotation);
        const POINT begin{place.x - static_cast<int>(text.anchor * x),
                          place.y + static_cast<int>(text.anchor * y)};
        ::MoveToEx(m_dc, begin.x, begin.y, nullptr);
        ::LineTo(m_dc, begin.x + static_cast<int>(x), begin.y - static_cast<int>(y));
        return;
    }
    // The height of a text is that of its capitals, which is about 0.72 of the font's.
    const int fontHeight = static_cast<int>(std::lround(height / 0.72));
    const int angle = static_cast<int>(std::lround(text.rotation * 1800 / std::numbers::pi));
    const fw::ScopedSelect font(m_dc, FontFor(fontHeight, angle));
    ::SetTextColor(m_dc, color);
    ::SetTextAlign(m_dc, TA_BASELINE | AlignOf(text.anchor));
    ::ExtTextOutW(m_dc, place.x, place.y, 0, nullptr, text.content.c_str(),
                  static_cast<UINT>(text.content.size()), nullptr);
}

void DrawingPainter::PaintDot(const kvhost::Point3& dot, COLORREF color, int width) {
    const POINT place = ToPixel(dot);
    const int half = width;
    FillColor(m_dc, {place.x - half, place.y - half, place.x + half + 1, place.y + half + 1}, color);
}

void DrawingPainter::PaintGrips(const Shape& shape) {
    POINT last{std::numeric_limits<LONG>::min() / 2, 0};
    const auto paint = [&](const kvhost::Point3& point) {
        const POINT place = ToPixel(point);
        if (std::abs(place.x - last.x) + std::abs(place.y - last.y) < Scaled(c_gripDistance)) {
            return;
        }
        last = place;
        const int half = Scaled(c_gripHalf);
        FillColor(m_dc, {place.x - half, place.y - half, place.x + half + 1, place.y + half + 1},
                  theme::c_grip);
    };
    if (shape.paths.size() > 1) {
        paint(
            {(shape.bounds.left + shape.bounds.right) / 2, (shape.bounds.bottom + shape.bounds.top) / 2, 0});
        return;
    }
    // Curves come as long paths of short pieces: a few of their points are enough.
    for (const Shape::Path& path : shape.paths) {
        const std::size_t step = path.points.size() > c_mostGrips ? path.points.size() / 4 : 1;
        for (std::size_t i = 0; i < path.points.size(); i += step) {
            paint(path.points[i]);
        }
    }
    for (const Shape::Text& text : shape.texts) {
        paint(text.position);
    }
    std::for_each(shape.dots.begin(), shape.dots.end(), paint);
}

HPEN DrawingPainter::PenFor(COLORREF color, int width) {
    fw::UniquePen& pen = m_pens[{color, width}];
    if (!pen) {
        pen.Reset(::CreatePen(PS_SOLID, width, color));
    }
    return pen.Get();
}

HFONT DrawingPainter::FontFor(int height, int angle) {
    fw::UniqueFont& font = m_fonts[{height, angle}];
    if (!font) {
        font = MakeFont(height, false, angle);
    }
    return font.Get();
}

POINT DrawingPainter::ToPixel(const kvhost::Point3& point) const {
    return {static_cast<LONG>(std::lround(std::clamp(m_transform.ToX(point.x), -c_farPixel, c_farPixel))),
            static_cast<LONG>(std::lround(std::clamp(m_transform.ToY(point.y), -c_farPixel, c_farPixel)))};
}

}  // namespace kvpalette
