#include "tests/support/KernelHandles.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <vector>

#include "framework/base/WindowsApi.h"

namespace kvtest {
namespace {

constexpr ULONG c_extendedHandleInformation = 64;
constexpr LONG c_tooSmall = static_cast<LONG>(0xC0000004);

// The system's own layouts.
struct HandleEntry {
    void* object;
    ULONG_PTR processId;
    ULONG_PTR handle;
    ULONG access;
    USHORT creatorIndex;
    USHORT typeIndex;
    ULONG attributes;
    ULONG reserved;
};

struct HandleTableHead {
    ULONG_PTR count;
    ULONG_PTR reserved;
};

using Query = LONG NTAPI(ULONG, void*, ULONG, ULONG*);

}  // namespace

long CountKernelHandles() {
    auto* const query = reinterpret_cast<Query*>(reinterpret_cast<void*>(
        ::GetProcAddress(::GetModuleHandleW(L"ntdll.dll"), "NtQuerySystemInformation")));
    if (query == nullptr) {
        return -1;
    }
    std::vector<std::byte> table(0x10000);
    LONG status = c_tooSmall;
    while ((status = query(c_extendedHandleInformation, table.data(), static_cast<ULONG>(table.size()),
                           nullptr)) == c_tooSmall) {
        table.resize(2 * table.size());
    }
    if (status < 0) {
        return -1;
    }
    const auto& head = *reinterpret_cast<const HandleTableHead*>(table.data());
    const std::span entries(reinterpret_cast<const HandleEntry*>(&head + 1), head.count);
    const ULONG_PTR process = ::GetCurrentProcessId();
    return static_cast<long>(std::ranges::count(entries, process, &HandleEntry::processId));
}

}  // namespace kvtest
