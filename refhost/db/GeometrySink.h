#pragma once

#include <span>
#include <string>

#include "refhost/db/Point3.h"

namespace kvhost {

/// Takes the shape of entities as paths, texts and dots, in the coordinates of the drawing.
class GeometrySink {
public:
    virtual void Path(std::span<const Point3> points, bool closed) = 0;
    /// `height` in drawing units, `rotation` in radians; `position` is the left end of the base line.
    virtual void Text(const Point3& position, double height, double rotation,
                      const std::wstring& content) = 0;
    virtual void Dot(const Point3& position) = 0;

protected:
    ~GeometrySink() = default;
};

}  // namespace kvhost
