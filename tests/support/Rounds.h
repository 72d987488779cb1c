#pragma once

#include <cstddef>
#include <cstdlib>

namespace kvtest {

/// The variable KV_THOROUGH is set: proofs take their time.
inline bool IsThorough() {
    return std::getenv("KV_THOROUGH") != nullptr;
}

/// How often a proof repeats itself: `thorough` times when it may take its time, else `quick` times.
inline int Rounds(int quick, int thorough) {
    return IsThorough() ? thorough : quick;
}

/// How often a proof of each class repeats itself: `thorough` times for each, or else `quick` times for all
/// `classes` together, so that ./test stays short however many they become.
inline int RoundsOfEach(std::size_t classes, int quick, int thorough) {
    return IsThorough() ? thorough : quick / static_cast<int>(classes);
}

}  // namespace kvtest
