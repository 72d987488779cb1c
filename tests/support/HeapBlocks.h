#pragma once

namespace kvtest {

/// Memory in use.
struct HeapUse {
    long blocks = 0;
    long long bytes = 0;
};

/// What is in use in all heaps of the process. Caches come and go: only growth that follows the number of
/// repetitions tells of a leak.
[[nodiscard]] HeapUse MeasureHeaps();
[[nodiscard]] inline long CountHeapBlocks() {
    return MeasureHeaps().blocks;
}

/// By how many blocks a count differs though nothing is lost. What is lost in each repetition is far more.
inline constexpr long c_heapNoise = 20;

}  // namespace kvtest
