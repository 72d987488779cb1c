#include "core/CQmxComModule.h"

#include "framework/com/Guarded.h"
#include "framework/com/Registration.h"
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
    // The host may throw; a lock may not.
    const HRESULT loaded = fw::Guarded([&] {
        return kvrxLoadModule(fw::ModulePath(GetModuleInstance()).c_str(), false, true) ? S_OK : E_FAIL;
    });
    m_hostLoaded = SUCCEEDED(loaded);
}
