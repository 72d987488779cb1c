#pragma once

#include <span>

#include "refhost/db/Point3.h"
#include "refhost/db/TextLine.h"

namespace kvhost {

/// Takes the shape of entities as paths, texts and dots, in the coordinates of the drawing.
class GeometrySink {
public:
    virtual void Path(std::span<const Point3> points, bool closed) = 0;
    virtual void Text(const TextLine& line) = 0;
    virtual void Dot(const Point3& position) = 0;

protected:
    ~GeometrySink() = default;
};

}  // namespace kvhost
