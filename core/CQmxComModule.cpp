#include "core/CQmxComModule.h"

#include <array>

#include "framework/com/Guarded.h"
#include "host_sdk/KvRxDynamicLinker.h"

namespace {

CQmxComModule s_module;

}  // namespace

CQmxComModule& KvPeModule() {
    return s_module;
}

LONG CQmxComModule::Lock() noexcept {
    if (GetLockCount() == 0 && !m_hostLoaded) {
        LoadIntoHost();
    }
    return CComModule::Lock();
}

// A failure leaves the flag down, so that the next first lock tries again.
void CQmxComModule::LoadIntoHost() noexcept {
    std::array<wchar_t, MAX_PATH> path{};
    const DWORD length =
        ::GetModuleFileNameW(GetModuleInstance(), path.data(), static_cast<DWORD>(path.size()));
    if (length == 0 || length >= path.size()) {
        return;
    }
    // The host may throw; a lock may not.
    const HRESULT loaded =
        fw::Guarded([&] { return kvrxLoadModule(path.data(), false, true) ? S_OK : E_FAIL; });
    m_hostLoaded = SUCCEEDED(loaded);
}
