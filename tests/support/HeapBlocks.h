#pragma once

namespace kvtest {

/// The memory blocks in use in all heaps of the process. Caches come and go: only growth that follows the
/// number of repetitions tells of a leak.
[[nodiscard]] long CountHeapBlocks();

}  // namespace kvtest
