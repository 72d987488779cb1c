// Writes behind a block of its heap, and ends as if nothing had happened.

#include "framework/base/WindowsApi.h"

int main() {
    const HANDLE heap = ::GetProcessHeap();
    constexpr SIZE_T size = 8;
    auto* const block = static_cast<volatile char*>(::HeapAlloc(heap, 0, size));
    if (!block) {
        return 1;
    }
    block[size] = 1;
    ::HeapFree(heap, 0, const_cast<char*>(block));
    return 0;
}
