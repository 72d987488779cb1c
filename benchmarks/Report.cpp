#include "benchmarks/Report.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>

#include "benchmarks/Limits.h"

namespace kvbench {
namespace {

constexpr int c_growthFrom = 1000;
constexpr int c_growthTo = 100000;

std::string NumberOrDash(double number) {
    char text[32];
    std::snprintf(text, sizeof text, "%.3f", number);
    return number == 0 ? "-" : text;
}

}  // namespace

const Figure* FindFigure(const std::vector<Figure>& figures, const std::string& workload, int objects) {
    const auto found = std::ranges::find_if(figures, [&](const Figure& figure) {
        return figure.workload == workload && figure.objects == objects;
    });
    return found == figures.end() ? nullptr : &*found;
}

std::vector<Growth> GrowthOf(const std::vector<Figure>& figures) {
    std::vector<Growth> result;
    for (const Figure& large : figures) {
        const Figure* const small = FindFigure(figures, large.workload, c_growthFrom);
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

namespace {

void PrintFigures(const std::vector<Figure>& figures) {
    std::printf("%-28s %8s %14s %14s %7s %10s\n", "workload", "objects", "row (us)", "floor (us)", "ratio",
                "host calls");
    for (const Figure& figure : figures) {
        const std::string objects = figure.objects == 0 ? "-" : std::to_string(figure.objects);
        std::printf("%-28s %8s %14.3f %14s %7s %10s\n", figure.workload.c_str(), objects.c_str(),
                    figure.product, NumberOrDash(figure.floor).c_str(), NumberOrDash(figure.ratio).c_str(),
                    figure.hostCalls == 0 ? "" : std::to_string(figure.hostCalls).c_str());
    }
}

void PrintGrowth(const std::vector<Growth>& growths) {
    std::printf("\n%-28s %14s %14s %14s   from %d to %d objects\n", "growth", "row/object", "floor/object",
                "row/call", c_growthFrom, c_growthTo);
    for (const Growth& growth : growths) {
        std::printf("%-28s %14.3f %14.3f %14.3f\n", growth.workload.c_str(), growth.perObject,
                    growth.floorPerObject, growth.perCall);
    }
}

void PrintFootprints(const std::vector<Footprint>& footprints) {
    std::printf("\n%-52s %10s %8s %12s\n", "a control that is not edited", "bytes", "blocks", "GDI objects");
    for (const Footprint& footprint : footprints) {
        std::printf("%-52s %10.0f %8.1f %12.1f\n", footprint.workload.c_str(), footprint.bytes,
                    footprint.blocks, footprint.gdiObjects);
    }
}

void PrintVerdicts(const std::vector<Verdict>& verdicts) {
    std::printf("\n%-52s %10s %8s\n", "limit", "measured", "at most");
    for (const Verdict& verdict : verdicts) {
        std::printf("%-52s %10.3f %8.2f %s\n", verdict.figure.c_str(), verdict.measured, verdict.limit,
                    verdict.Holds() ? "holds" : "EXCEEDED");
    }
}

}  // namespace

void Print(const Measurements& measured) {
    if (!measured.figures.empty()) {
        PrintFigures(measured.figures);
    }
    if (const std::vector<Growth> growths = GrowthOf(measured.figures); !growths.empty()) {
        PrintGrowth(growths);
    }
    if (!measured.footprints.empty()) {
        PrintFootprints(measured.footprints);
    }
    if (const std::vector<Verdict> verdicts = Judge(measured.figures); !verdicts.empty()) {
        PrintVerdicts(verdicts);
    }
}

bool WriteJson(const std::wstring& path, const Measurements& measured) {
    nlohmann::ordered_json figureList = nlohmann::ordered_json::array();
    for (const Figure& figure : measured.figures) {
        figureList.push_back({{"workload", figure.workload},
                              {"objects", figure.objects},
                              {"microseconds", figure.product},
                              {"floorMicroseconds", figure.floor},
                              {"ratio", figure.ratio},
                              {"hostCalls", figure.hostCalls}});
    }
    nlohmann::ordered_json growthList = nlohmann::ordered_json::array();
    for (const Growth& growth : GrowthOf(measured.figures)) {
        growthList.push_back({{"workload", growth.workload},
                              {"from", growth.from},
                              {"to", growth.to},
                              {"perObject", growth.perObject},
                              {"floorPerObject", growth.floorPerObject},
                              {"perCall", growth.perCall}});
    }
    nlohmann::ordered_json footprintList = nlohmann::ordered_json::array();
    for (const Footprint& footprint : measured.footprints) {
        footprintList.push_back({{"workload", footprint.workload},
                                 {"bytes", footprint.bytes},
                                 {"blocks", footprint.blocks},
                                 {"gdiObjects", footprint.gdiObjects}});
    }
    nlohmann::ordered_json limitList = nlohmann::ordered_json::array();
    for (const Verdict& verdict : Judge(measured.figures)) {
        limitList.push_back({{"figure", verdict.figure},
                             {"measured", verdict.measured},
                             {"limit", verdict.limit},
                             {"holds", verdict.Holds()}});
    }
    const nlohmann::ordered_json document{{"figures", figureList},
                                          {"growth", growthList},
                                          {"footprints", footprintList},
                                          {"limits", limitList}};
    std::ofstream file{std::filesystem::path(path)};
    file << document.dump(2) << '\n';
    file.close();
    return file.good();
}

}  // namespace kvbench
