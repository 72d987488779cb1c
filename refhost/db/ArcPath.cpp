#include "refhost/db/ArcPath.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace kvhost {

namespace {

constexpr int c_stepsPerTurn = 72;

}  // namespace

void AppendArcPath(std::vector<Point3>& points, const Point3& center, double radius, double startAngle,
                   double sweep, const Transform& transform) {
    const double turns = std::abs(sweep) / (2 * std::numbers::pi);
    const int steps = std::max(1, static_cast<int>(std::ceil(turns * c_stepsPerTurn)));
    for (int i = 0; i <= steps; ++i) {
        const double angle = startAngle + sweep * i / steps;
        points.push_back(transform.Apply(
            {center.x + radius * std::cos(angle), center.y + radius * std::sin(angle), center.z}));
    }
}

}  // namespace kvhost
