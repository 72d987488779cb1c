#include "tests/control/support/ModuleLock.h"

namespace kvtest {

HRESULT AskModuleCanUnload() {
    const HMODULE module = ::GetModuleHandleW(L"KvPEXCtl.qmx");
    if (!module) {
        return E_UNEXPECTED;
    }
    using Entry = HRESULT WINAPI();
    auto* const entry =
        reinterpret_cast<Entry*>(reinterpret_cast<void*>(::GetProcAddress(module, "DllCanUnloadNow")));
    return entry != nullptr ? entry() : E_UNEXPECTED;
}

}  // namespace kvtest
