#pragma once

#include <algorithm>
#include <limits>

#include "refhost/db/Point3.h"

namespace kvhost {

/// Smallest box around points, in the plane of the drawing.
struct Bounds {
    double left = std::numeric_limits<double>::infinity();
    double bottom = std::numeric_limits<double>::infinity();
    double right = -std::numeric_limits<double>::infinity();
    double top = -std::numeric_limits<double>::infinity();

    [[nodiscard]] bool IsEmpty() const { return left > right; }
    void Add(const Point3& point) {
        left = std::min(left, point.x);
        right = std::max(right, point.x);
        bottom = std::min(bottom, point.y);
        top = std::max(top, point.y);
    }
};

}  // namespace kvhost
