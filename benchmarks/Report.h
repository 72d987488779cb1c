#pragma once

#include <string>
#include <vector>

#include "benchmarks/Measure.h"

namespace kvbench {

/// How a workload's cost of one object grew between two sizes; 1 is no growth.
struct Growth {
    std::string workload;
    int from = 0;
    int to = 0;
    double perObject = 0;
    double floorPerObject = 0;  ///< what the host's own calls grew by: caches hold fewer of many objects
    double perCall = 0;
};

/// Of each workload that was measured with both numbers of objects.
[[nodiscard]] std::vector<Growth> GrowthOf(const std::vector<Figure>& figures);

/// Null when it was not measured.
[[nodiscard]] const Figure* FindFigure(const std::vector<Figure>& figures, const std::string& workload,
                                       int objects);

struct Measurements {
    std::vector<Figure> figures;
    std::vector<Footprint> footprints;
};

/// The figures, what follows from them, and whether the promised limits hold.
void Print(const Measurements& measured);
/// False when the file cannot be written.
[[nodiscard]] bool WriteJson(const std::wstring& path, const Measurements& measured);

}  // namespace kvbench
