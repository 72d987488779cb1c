#include "palette/view/ViewTransform.h"

#include <algorithm>

namespace kvpalette {

namespace {

constexpr double c_margin = 0.94;
constexpr double c_smallestScale = 1e-9;
constexpr double c_largestScale = 1e9;
constexpr double c_emptyExtent = 100;

}  // namespace

void ViewTransform::SetWindow(int width, int height) {
    m_width = std::max(width, 1);
    m_height = std::max(height, 1);
}

void ViewTransform::Fit(const kvhost::Bounds& bounds) {
    if (bounds.IsEmpty()) {
        m_centerX = c_emptyExtent / 2;
        m_centerY = c_emptyExtent / 2;
        m_scale = std::min(m_width, m_height) / c_emptyExtent * c_margin;
        return;
    }
    m_centerX = (bounds.left + bounds.right) / 2;
    m_centerY = (bounds.bottom + bounds.top) / 2;
    const double width = std::max(bounds.right - bounds.left, 1e-9);
    const double height = std::max(bounds.top - bounds.bottom, 1e-9);
    const double fitting = std::min(m_width / width, m_height / height) * c_margin;
    m_scale = std::clamp(fitting, c_smallestScale, c_largestScale);
}

void ViewTransform::ZoomAt(POINT pixel, double factor) {
    const double x = FromX(pixel.x);
    const double y = FromY(pixel.y);
    m_scale = std::clamp(m_scale * factor, c_smallestScale, c_largestScale);
    m_centerX += x - FromX(pixel.x);
    m_centerY += y - FromY(pixel.y);
}

void ViewTransform::Pan(int pixelsRight, int pixelsDown) {
    m_centerX -= pixelsRight / m_scale;
    m_centerY += pixelsDown / m_scale;
}

kvhost::Bounds ViewTransform::Visible() const {
    return {FromX(0), FromY(m_height), FromX(m_width), FromY(0)};
}

}  // namespace kvpalette
