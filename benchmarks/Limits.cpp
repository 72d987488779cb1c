#include "benchmarks/Limits.h"

#include "benchmarks/Report.h"

namespace kvbench {
namespace {

// A row's cost beside its floor.
struct RatioLimit {
    const char* workload;
    int objects;
    double limit;
};

constexpr RatioLimit c_ratioLimits[] = {
    {"read, shared value", 10000, 1.15},
    {"read, second differs", 10000, 1.15},
    {"read, dynamic property", 10000, 1.15},
    {"read, number", 10000, 1.15},
    {"write", 10000, 1.15},
    {"paint", 0, 1.3},
};

// An object may cost this much more in the large selection than in the small one.
constexpr double c_growthLimit = 1.3;

// Two objects that differ tell as much as 100,000.
constexpr const char* c_earlyEnd = "read, second differs";
constexpr double c_sameCost = 1.1;

std::string NameOf(const RatioLimit& limit) {
    std::string name(limit.workload);
    if (limit.objects > 0) {
        name.append(", ").append(std::to_string(limit.objects)).append(" objects");
    }
    return name.append(": row to floor");
}

}  // namespace

std::vector<Verdict> Judge(const std::vector<Figure>& figures) {
    std::vector<Verdict> verdicts;
    for (const RatioLimit& limit : c_ratioLimits) {
        if (const Figure* const figure = FindFigure(figures, limit.workload, limit.objects)) {
            verdicts.push_back({NameOf(limit), figure->ratio, limit.limit});
        }
    }
    for (const Growth& growth : GrowthOf(figures)) {
        std::string name = growth.workload;
        name.append(": growth of an object's cost");
        verdicts.push_back({name, growth.perObject, c_growthLimit});
    }
    const Figure* const two = FindFigure(figures, c_earlyEnd, 2);
    const Figure* const many = FindFigure(figures, c_earlyEnd, 100000);
    if (two != nullptr && many != nullptr) {
        verdicts.push_back(
            {std::string(c_earlyEnd) + ": 100000 objects to 2", many->product / two->product, c_sameCost});
    }
    return verdicts;
}

}  // namespace kvbench
