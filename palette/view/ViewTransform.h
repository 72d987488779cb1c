#pragma once

#include "framework/base/WindowsApi.h"
#include "refhost/db/Bounds.h"

namespace kvpalette {

/// How the drawing lies in the window: which point is in the middle, and how many pixels a drawing unit has.
class ViewTransform {
public:
    void SetWindow(int width, int height);
    int Width() const { return m_width; }
    int Height() const { return m_height; }
    double Scale() const { return m_scale; }

    /// Shows all of the bounds with a margin; an empty box shows the neighbourhood of the origin.
    void Fit(const kvhost::Bounds& bounds);
    /// Enlarges by the factor; the drawing's point under the given pixel stays where it is.
    void ZoomAt(POINT pixel, double factor);
    void Pan(int pixelsRight, int pixelsDown);

    double ToX(double x) const { return m_width / 2.0 + (x - m_centerX) * m_scale; }
    double ToY(double y) const { return m_height / 2.0 - (y - m_centerY) * m_scale; }
    double FromX(double pixel) const { return m_centerX + (pixel - m_width / 2.0) / m_scale; }
    double FromY(double pixel) const { return m_centerY - (pixel - m_height / 2.0) / m_scale; }
    /// What the window shows of the drawing.
    kvhost::Bounds Visible() const;

private:
    int m_width = 1;
    int m_height = 1;
    double m_centerX = 0;
    double m_centerY = 0;
    double m_scale = 1;
};

}  // namespace kvpalette
