#pragma once

#include <cstdlib>

namespace kvtest {

/// How often a proof repeats itself: `thorough` times when the variable KV_THOROUGH is set, else `quick`
/// times, which keeps ./test short.
inline int Rounds(int quick, int thorough) {
    return std::getenv("KV_THOROUGH") != nullptr ? thorough : quick;
}

}  // namespace kvtest
