#pragma once

/// A point in the drawing's world coordinates, in drawing units.
struct KvGePoint3d {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
};
