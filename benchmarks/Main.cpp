#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <stdexcept>
#include <string>
#include <vector>

#include "benchmarks/Drawing.h"
#include "benchmarks/Report.h"
#include "benchmarks/Workloads.h"
#include "core/Satellite.h"

namespace {

constexpr int c_listSizes[] = {100, 1000, 10000};
constexpr int c_sizes[] = {1, 100, 1000, 10000, 100000};

constexpr const char* c_usage =
    "kv_bench [--json FILE] [--max OBJECTS] [--only WORK]\n"
    "  Times a row's work beside the same host calls made directly and prints both.\n"
    "  --json FILE    writes the figures to FILE, too\n"
    "  --max OBJECTS  leaves out selections of more objects (100000)\n"
    "  --only WORK    one of create, memory, palette, paint, lists, layers, read, write\n";

struct Arguments {
    std::wstring json;
    int most = 100000;
    std::wstring only;  // empty: all

    [[nodiscard]] bool Wants(const wchar_t* work) const { return only.empty() || only == work; }
};

constexpr const wchar_t* c_works[] = {L"create", L"memory", L"palette", L"paint",
                                      L"lists",  L"layers", L"read",    L"write"};

bool ParseArguments(int count, wchar_t** texts, Arguments& arguments) {
    for (int index = 1; index < count; index += 2) {
        const std::wstring name = texts[index];
        if (index + 1 == count) {
            return false;
        }
        if (name == L"--json") {
            arguments.json = texts[index + 1];
        } else if (name == L"--max") {
            arguments.most = static_cast<int>(std::wcstol(texts[index + 1], nullptr, 10));
        } else if (name == L"--only" && std::ranges::find(c_works, std::wstring_view(texts[index + 1])) !=
                                            std::ranges::end(c_works)) {
            arguments.only = texts[index + 1];
        } else {
            return false;
        }
    }
    return arguments.most >= 1;
}

kvbench::Measurements MeasureAll(const Arguments& arguments) {
    std::vector<int> sizes;
    for (const int size : c_sizes) {
        if (size <= arguments.most) {
            sizes.push_back(size);
        }
    }
    kvbench::Measurements measured;
    std::vector<kvbench::Figure>& figures = measured.figures;
    // First, while the heaps are small.
    if (arguments.Wants(L"memory")) {
        kvbench::MeasureIdleMemory(measured.footprints);
    }
    if (arguments.Wants(L"create")) {
        kvbench::MeasureCreation(figures);
    }
    if (arguments.Wants(L"palette")) {
        kvbench::MeasurePalette(figures);
    }
    if (arguments.Wants(L"layers")) {
        kvbench::MeasureLayers(c_listSizes, figures);
    }
    kvbench::Drawing drawing(std::max(sizes.back(), 2));
    if (arguments.Wants(L"paint")) {
        kvbench::MeasurePainting(drawing, figures);
    }
    if (arguments.Wants(L"lists")) {
        kvbench::MeasureLists(c_listSizes, figures);
    }
    if (arguments.Wants(L"read")) {
        kvbench::MeasureReads(drawing, sizes, figures);
    }
    if (arguments.Wants(L"write")) {
        kvbench::MeasureWrites(drawing, sizes, figures);
    }
    return measured;
}

}  // namespace

int wmain(int count, wchar_t** texts) {
    Arguments arguments;
    if (count == 2 && std::wstring(texts[1]) == L"--help") {
        std::fputs(c_usage, stdout);
        return EXIT_SUCCESS;
    }
    if (!ParseArguments(count, texts, arguments)) {
        std::fputs(c_usage, stderr);
        return 2;
    }
    if (FAILED(::OleInitialize(nullptr)) || !LoadKvPeSatellite(::GetModuleHandleW(nullptr))) {
        std::fputs("kv_bench: the system or the module's texts are missing\n", stderr);
        return EXIT_FAILURE;
    }
    int result = EXIT_SUCCESS;
    try {
        const kvbench::Measurements measured = MeasureAll(arguments);
        kvbench::Print(measured);
        if (!arguments.json.empty() && !kvbench::WriteJson(arguments.json, measured)) {
            std::fprintf(stderr, "kv_bench: %ls cannot be written\n", arguments.json.c_str());
            result = EXIT_FAILURE;
        }
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "kv_bench: this does not hold: %s\n", failure.what());
        result = EXIT_FAILURE;
    }
    ::OleUninitialize();
    return result;
}
