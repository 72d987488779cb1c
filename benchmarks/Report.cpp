#include "benchmarks/Report.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>

namespace kvbench {
namespace {

constexpr int c_growthFrom = 1000;
constexpr int c_growthTo = 100000;

const Figure* Find(const std::vector<Figure>& figures, const std::string& workload, int objects) {
    for (const Figure& figure : figures) {
        if (figure.workload == workload && figure.objects == objects) {
            return &figure;
        }
    }
    return nullptr;
}

std::string NumberOrDash(double number) {
    char text[32];
    std::snprintf(text, sizeof text, "%.3f", number);
    return number == 0 ? "-" : text;
}

}  // namespace

std::vector<Growth> GrowthOf(const std::vector<Figure>& figures) {
    std::vector<Growth> result;
    for (const Figure& large : figures) {
        const Figure* const small = Find(figures, large.workload, c_growthFrom);
        if (large.objects != c_growthTo || small == nullptr) {
            continue;
        }
        constexpr double c_perObject = static_cast<double>(c_growthFrom) / c_growthTo;
        const double perCall = large.product / small->product;
        const double floorPerCall = large.floor / small->floor;
        result.push_back({large.workload, c_growthFrom, c_growthTo, perCall * c_perObject,
                          floorPerCall * c_perObject, perCall});
    }
    return result;
}

void PrintTable(const std::vector<Figure>& figures) {
    std::printf("%-28s %8s %14s %14s %7s %10s\n", "workload", "objects", "row (us)", "floor (us)", "ratio",
                "host calls");
    for (const Figure& figure : figures) {
        const std::string objects = figure.objects == 0 ? "-" : std::to_string(figure.objects);
        std::printf("%-28s %8s %14.3f %14s %7s %10s\n", figure.workload.c_str(), objects.c_str(),
                    figure.product, NumberOrDash(figure.floor).c_str(), NumberOrDash(figure.ratio).c_str(),
                    figure.hostCalls == 0 ? "" : std::to_string(figure.hostCalls).c_str());
    }
    const std::vector<Growth> growths = GrowthOf(figures);
    if (growths.empty()) {
        return;
    }
    std::printf("\n%-28s %14s %14s %14s   from %d to %d objects\n", "growth", "row/object", "floor/object",
                "row/call", c_growthFrom, c_growthTo);
    for (const Growth& growth : growths) {
        std::printf("%-28s %14.3f %14.3f %14.3f\n", growth.workload.c_str(), growth.perObject,
                    growth.floorPerObject, growth.perCall);
    }
}

bool WriteJson(const std::wstring& path, const std::vector<Figure>& figures) {
    nlohmann::ordered_json figureList = nlohmann::ordered_json::array();
    for (const Figure& figure : figures) {
        figureList.push_back({{"workload", figure.workload},
                              {"objects", figure.objects},
                              {"microseconds", figure.product},
                              {"floorMicroseconds", figure.floor},
                              {"ratio", figure.ratio},
                              {"hostCalls", figure.hostCalls}});
    }
    nlohmann::ordered_json growthList = nlohmann::ordered_json::array();
    for (const Growth& growth : GrowthOf(figures)) {
        growthList.push_back({{"workload", growth.workload},
                              {"from", growth.from},
                              {"to", growth.to},
                              {"perObject", growth.perObject},
                              {"floorPerObject", growth.floorPerObject},
                              {"perCall", growth.perCall}});
    }
    const nlohmann::ordered_json document{{"figures", figureList}, {"growth", growthList}};
    std::ofstream file{std::filesystem::path(path)};
    file << document.dump(2) << '\n';
    file.close();
    return file.good();
}

}  // namespace kvbench
