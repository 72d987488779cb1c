#pragma once

#include <vector>

#include "refhost/db/Transform.h"

namespace kvhost {

/// Appends points of an arc from `startAngle` over `sweep` radians (negative: clockwise), both ends included,
/// near enough to look round.
void AppendArcPath(std::vector<Point3>& points, const Point3& center, double radius, double startAngle,
                   double sweep, const Transform& transform);

}  // namespace kvhost
