#include "tests/support/HeapBlocks.h"

#include <algorithm>
#include <vector>

#include "framework/base/WindowsApi.h"

namespace kvtest {
namespace {

long CountBlocksOf(HANDLE heap) {
    long blocks = 0;
    PROCESS_HEAP_ENTRY entry{};
    ::HeapLock(heap);
    while (::HeapWalk(heap, &entry)) {
        blocks += (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0 ? 1 : 0;
    }
    ::HeapUnlock(heap);
    return blocks;
}

}  // namespace

long CountHeapBlocks() {
    std::vector<HANDLE> heaps(::GetProcessHeaps(0, nullptr));
    heaps.resize(std::min<std::size_t>(heaps.size(),
                                       ::GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data())));
    long blocks = 0;
    for (HANDLE heap : heaps) {
        blocks += CountBlocksOf(heap);
    }
    return blocks;
}

}  // namespace kvtest
