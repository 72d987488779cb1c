#pragma once

#include "palette/view/DisplayList.h"

namespace kvpalette {

/// Whether the shape comes within the reach of a point; all in drawing units.
[[nodiscard]] bool IsNear(const Shape& shape, const kvhost::Point3& point, double reach);

/// Whether the shape lies within the box; with `touching` also when a part of it does.
[[nodiscard]] bool IsInBox(const Shape& shape, const kvhost::Bounds& box, bool touching);

}  // namespace kvpalette
