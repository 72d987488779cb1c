#pragma once

#include <bit>
#include <cmath>
#include <cstdint>
#include <random>

namespace kvtest {

/// Numbers as drawings hold them, and all others: plain ones, halves and sixteenths, those next to a carry,
/// and any pattern of bits.
inline double SeededNumber(std::mt19937_64& random) {
    const std::uint64_t bits = random();
    const double sign = (bits & 1) != 0 ? -1 : 1;
    const double unit = static_cast<double>(bits >> 11) * 0x1p-53;
    switch (random() % 6) {
        case 0:
            return sign * unit * 7;
        case 1:
            return sign * unit * 1e6;
        case 2:
            return sign * std::exp((unit - 0.5) * 80);
        case 3:
            return sign * std::round(unit * 1e6) / 256;
        case 4:
            return std::nextafter(sign * std::round(unit * 4000) / 4, sign * 1e9) - sign * unit * 1e-7;
        default:
            return std::bit_cast<double>(random());
    }
}

}  // namespace kvtest
