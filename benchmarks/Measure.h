#pragma once

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstddef>
#include <string>
#include <vector>

namespace kvbench {

/// One line of the table. Times are of one call, in microseconds.
struct Figure {
    std::string workload;
    int objects = 0;  ///< 0: the workload has no objects
    double product = 0;
    double floor = 0;  ///< 0: there is nothing to compare with
    double ratio = 0;
    int hostCalls = 0;  ///< per call, where they are what is measured
};

/// What one control takes of the process; its share of the palette's side, where it is shown, included.
struct Footprint {
    std::string workload;
    double bytes = 0;
    double blocks = 0;
    double gdiObjects = 0;
};

namespace detail {

template <class Call>
double MicrosecondsOf(int calls, Call& call) {
    const auto start = std::chrono::steady_clock::now();
    for (int done = 0; done < calls; ++done) {
        call();
    }
    return std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - start).count() /
           calls;
}

inline double MedianOf(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

}  // namespace detail

/// Times the two by turns, so that what the machine does beside hits both. Each time is the median over the
/// rounds, and so is the ratio, which is taken round by round. `between` runs untimed before each stretch.
template <class Product, class Floor, class Between>
Figure Measure(std::string workload, int objects, Product product, Floor floor, Between between,
               int mostCalls = 20000) {
    constexpr double c_shortestStretch = 500;
    constexpr double c_wantedTotal = 200000;

    between();
    product();
    between();
    floor();
    between();
    const double once = std::max(detail::MicrosecondsOf(1, floor), 0.01);
    const int calls = static_cast<int>(std::clamp(std::ceil(c_shortestStretch / once), 1.0, 1.0 * mostCalls));
    const int rounds = static_cast<int>(std::clamp(c_wantedTotal / (calls * once), 5.0, 101.0));

    std::vector<double> products;
    std::vector<double> floors;
    std::vector<double> ratios;
    for (int round = 0; round < rounds; ++round) {
        const auto timeProduct = [&] {
            between();
            products.push_back(detail::MicrosecondsOf(calls, product));
        };
        // Who goes first changes, too: the second finds warmer caches.
        if (round % 2 == 0) {
            timeProduct();
        }
        between();
        floors.push_back(detail::MicrosecondsOf(calls, floor));
        if (round % 2 != 0) {
            timeProduct();
        }
        ratios.push_back(products.back() / floors.back());
    }
    return {std::move(workload),      objects, detail::MedianOf(products), detail::MedianOf(floors),
            detail::MedianOf(ratios), 0};
}

/// For calls that `between` must take back before the next.
template <class Product, class Floor, class Between>
Figure MeasureOnce(std::string workload, int objects, Product product, Floor floor, Between between) {
    return Measure(std::move(workload), objects, product, floor, between, 1);
}

template <class Product, class Floor>
Figure Measure(std::string workload, int objects, Product product, Floor floor) {
    return Measure(std::move(workload), objects, product, floor, [] {});
}

}  // namespace kvbench
