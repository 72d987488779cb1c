#include "palette/view/HitTest.h"

#include <algorithm>
#include <cmath>

#include "refhost/db/TextLine.h"

namespace kvpalette {

namespace {

using kvhost::Bounds;
using kvhost::Point3;

bool Overlap(const Bounds& left, const Bounds& right) {
    return left.left <= right.right && right.left <= left.right && left.bottom <= right.top &&
           right.bottom <= left.top;
}

bool Contains(const Bounds& box, const Bounds& inner) {
    return inner.left >= box.left && inner.right <= box.right && inner.bottom >= box.bottom &&
           inner.top <= box.top;
}

bool Contains(const Bounds& box, const Point3& point) {
    return point.x >= box.left && point.x <= box.right && point.y >= box.bottom && point.y <= box.top;
}

double DistanceToSegment(const Point3& point, const Point3& from, const Point3& to) {
    const double alongX = to.x - from.x;
    const double alongY = to.y - from.y;
    const double length = alongX * alongX + alongY * alongY;
    const double at =
        length > 0
            ? std::clamp(((point.x - from.x) * alongX + (point.y - from.y) * alongY) / length, 0.0, 1.0)
            : 0.0;
    return std::hypot(point.x - from.x - at * alongX, point.y - from.y - at * alongY);
}

// Clips the segment against the box; true when something is left.
bool SegmentTouches(const Bounds& box, const Point3& from, const Point3& to) {
    double first = 0;
    double last = 1;
    const double deltas[] = {to.x - from.x, to.y - from.y};
    const double starts[] = {from.x, from.y};
    const double lows[] = {box.left, box.bottom};
    const double highs[] = {box.right, box.top};
    for (int axis = 0; axis < 2; ++axis) {
        if (deltas[axis] == 0) {
            if (starts[axis] < lows[axis] || starts[axis] > highs[axis]) {
                return false;
            }
            continue;
        }
        const double enter = (lows[axis] - starts[axis]) / deltas[axis];
        const double leave = (highs[axis] - starts[axis]) / deltas[axis];
        first = std::max(first, std::min(enter, leave));
        last = std::min(last, std::max(enter, leave));
    }
    return first <= last;
}

template <class Test>
bool AnySegment(const Shape::Path& path, const Test& test) {
    for (std::size_t i = 1; i < path.points.size(); ++i) {
        if (test(path.points[i - 1], path.points[i])) {
            return true;
        }
    }
    return path.closed && path.points.size() > 2 && test(path.points.back(), path.points.front());
}

// Height and run of the text count: its box, turned with it.
bool TextContains(const Shape::Text& text, const Point3& point, double reach) {
    const double dx = point.x - text.position.x;
    const double dy = point.y - text.position.y;
    const double along = dx * std::cos(text.rotation) + dy * std::sin(text.rotation);
    const double up = dy * std::cos(text.rotation) - dx * std::sin(text.rotation);
    const double length = text.height * kvhost::c_characterWidth * static_cast<double>(text.content.size());
    return along >= -text.anchor * length - reach && along <= (1 - text.anchor) * length + reach &&
           up >= -kvhost::c_descent * text.height - reach && up <= text.height + reach;
}

}  // namespace

bool IsNear(const Shape& shape, const Point3& point, double reach) {
    Bounds around;
    around.Add({point.x - reach, point.y - reach, 0});
    around.Add({point.x + reach, point.y + reach, 0});
    if (shape.bounds.IsEmpty() || !Overlap(shape.bounds, around)) {
        return false;
    }
    const auto nearSegment = [&](const Point3& from, const Point3& to) {
        return DistanceToSegment(point, from, to) <= reach;
    };
    return std::any_of(shape.paths.begin(), shape.paths.end(),
                       [&](const Shape::Path& path) { return AnySegment(path, nearSegment); }) ||
           std::any_of(shape.texts.begin(), shape.texts.end(),
                       [&](const Shape::Text& text) { return TextContains(text, point, reach); }) ||
           std::any_of(shape.dots.begin(), shape.dots.end(), [&](const Point3& dot) {
               return std::hypot(dot.x - point.x, dot.y - point.y) <= reach;
           });
}

bool IsInBox(const Shape& shape, const Bounds& box, bool touching) {
    if (shape.bounds.IsEmpty() || !Overlap(shape.bounds, box)) {
        return false;
    }
    if (Contains(box, shape.bounds)) {
        return true;
    }
    if (!touching) {
        return false;
    }
    const auto touches = [&](const Point3& from, const Point3& to) { return SegmentTouches(box, from, to); };
    return !shape.texts.empty() ||
           std::any_of(shape.paths.begin(), shape.paths.end(),
                       [&](const Shape::Path& path) { return AnySegment(path, touches); }) ||
           std::any_of(shape.dots.begin(), shape.dots.end(),
                       [&](const Point3& dot) { return Contains(box, dot); });
}

}  // namespace kvpalette
