#pragma once

#include "refhost/db/Point3.h"

namespace kvhost {

/// How the contents of a block come to their place: scaled, turned about the z axis, moved.
struct Transform {
    double xx = 1, xy = 0, yx = 0, yy = 1, zz = 1;
    Point3 offset;

    [[nodiscard]] Point3 Apply(const Point3& point) const {
        return {xx * point.x + xy * point.y + offset.x, yx * point.x + yy * point.y + offset.y,
                zz * point.z + offset.z};
    }
    /// This transform after `inner`.
    [[nodiscard]] Transform After(const Transform& inner) const {
        return {xx * inner.xx + xy * inner.yx,
                xx * inner.xy + xy * inner.yy,
                yx * inner.xx + yy * inner.yx,
                yx * inner.xy + yy * inner.yy,
                zz * inner.zz,
                Apply(inner.offset)};
    }
};

}  // namespace kvhost
