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

}  // namespace kvtest
