#pragma once

#include <cmath>

#include "refhost/db/FieldVisitor.h"

namespace kvhost {

/// How the segment behind a polyline's vertex runs.
enum class SegmentShape { Straight, ArcLeft, ArcRight };

[[nodiscard]] inline SegmentShape ShapeOfSegment(const PolylineVertex& vertex) {
    if (vertex.bulge == 0) {
        return SegmentShape::Straight;
    }
    return vertex.bulge > 0 ? SegmentShape::ArcLeft : SegmentShape::ArcRight;
}

/// Gives the segment a shape. An arc that only turns round keeps its size; a straight segment becomes a
/// quarter of a circle. False for what is no shape.
[[nodiscard]] inline bool BendSegment(PolylineVertex& vertex, SegmentShape shape) {
    constexpr double c_quarterCircle = 0.41421356237309503;  // tangent of a quarter of the right angle
    const double size = vertex.bulge == 0 ? c_quarterCircle : std::abs(vertex.bulge);
    switch (shape) {
        case SegmentShape::Straight:
            vertex.bulge = 0;
            return true;
        case SegmentShape::ArcLeft:
            vertex.bulge = size;
            return true;
        case SegmentShape::ArcRight:
            vertex.bulge = -size;
            return true;
    }
    return false;
}

}  // namespace kvhost
