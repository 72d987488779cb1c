#pragma once

#include <string>
#include <vector>

#include "benchmarks/Measure.h"

namespace kvbench {

/// A figure that this project has promised, and what was measured.
struct Verdict {
    std::string figure;
    double measured = 0;
    double limit = 0;

    [[nodiscard]] bool Holds() const { return measured <= limit; }
};

/// Of each promise whose workloads were measured.
[[nodiscard]] std::vector<Verdict> Judge(const std::vector<Figure>& figures);

}  // namespace kvbench
