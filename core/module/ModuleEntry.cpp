// The module's entry points: the process's, the component runtime's and the host's.

#include "core/CQmxComModule.h"
#include "core/HostEntryPoint.h"
#include "core/Satellite.h"
#include "core/module/ObjectMap.h"
#include "framework/base/Hresult.h"
#include "framework/com/Guarded.h"
#include "framework/window/WindowClass.h"
#include "host_sdk/KvRxDynamicLinker.h"

namespace {

BOOL AttachProcess(HINSTANCE instance) {
    if (!LoadKvPeSatellite(instance) || FAILED(KvPeModule().Init(KvPeObjectMap(), instance))) {
        return FALSE;
    }
    ::DisableThreadLibraryCalls(instance);
    return TRUE;
}

// The satellite stays: texts loaded from it may be in use until the process ends.
void DetachProcess(HINSTANCE instance) {
    KvPeModule().Term();
    fw::UnregisterWindowClasses(instance);
}

}  // namespace

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, void*) {
    if (reason == DLL_PROCESS_ATTACH) {
        return AttachProcess(instance);
    }
    if (reason == DLL_PROCESS_DETACH) {
        DetachProcess(instance);
    }
    return TRUE;
}

STDAPI DllCanUnloadNow() {
    return AfxDllCanUnloadNow() == S_OK && KvPeModule().GetLockCount() == 0 ? S_OK : S_FALSE;
}

STDAPI DllGetClassObject(REFCLSID classId, REFIID id, void** result) {
    return KvPeModule().GetClassObject(classId, id, result);
}

extern "C" unsigned kvrxEntryPoint(unsigned message, void* packet) {
    unsigned answer = 0;
    // The host's linker may throw; nothing thrown crosses an entry point.
    fw::Ignore(fw::Guarded([&] {
        answer = AnswerHostMessage(message, packet);
        return S_OK;
    }));
    return answer;
}

extern "C" unsigned kvrxGetApiVersion(unsigned) {
    return KVRX_API_VERSION;
}
