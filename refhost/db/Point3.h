#pragma once

namespace kvhost {

/// A point or vector of the drawing, in drawing units.
struct Point3 {
    double x = 0;
    double y = 0;
    double z = 0;

    friend bool operator==(const Point3&, const Point3&) = default;
};

/// All coordinates are numbers, neither infinite nor undefined.
[[nodiscard]] inline bool IsFinite(double number) {
    return number - number == 0;
}
[[nodiscard]] inline bool IsFinite(const Point3& point) {
    return IsFinite(point.x) && IsFinite(point.y) && IsFinite(point.z);
}

}  // namespace kvhost
