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

void PrintTable(const std::vector<Figure>& figures);
/// False when the file cannot be written.
[[nodiscard]] bool WriteJson(const std::wstring& path, const std::vector<Figure>& figures);

}  // namespace kvbench
