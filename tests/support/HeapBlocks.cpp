#include "tests/support/HeapBlocks.h"

#include <algorithm>
#include <vector>

#include "framework/base/WindowsApi.h"

namespace kvtest {
namespace {

// A heap that is checked keeps what was freed for a while, up to a number of blocks: let them be ours.
void PushOutFreedBlocks(HANDLE heap) {
    constexpr int keptBlocks = 2'000;
    for (int block = 0; block < keptBlocks; ++block) {
        ::HeapFree(heap, 0, ::HeapAlloc(heap, 0, sizeof(void*)));
    }
}

void AddUseOf(HANDLE heap, HeapUse& use) {
    PROCESS_HEAP_ENTRY entry{};
    ::HeapLock(heap);
    while (::HeapWalk(heap, &entry)) {
        if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0) {
            ++use.blocks;
            use.bytes += entry.cbData;
        }
    }
    ::HeapUnlock(heap);
}

}  // namespace

HeapUse MeasureHeaps() {
    std::vector<HANDLE> heaps(::GetProcessHeaps(0, nullptr));
    heaps.resize(std::min<std::size_t>(heaps.size(),
                                       ::GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data())));
    HeapUse use;
    for (HANDLE heap : heaps) {
        PushOutFreedBlocks(heap);
        AddUseOf(heap, use);
    }
    return use;
}

}  // namespace kvtest
