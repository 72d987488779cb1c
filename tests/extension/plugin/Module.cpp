// The component server of the module: its one class, its creation and its registration.

#include <array>

#include "UnitEditor.h"
#include "families/CKvPeEditTempl.h"
#include "framework/com/CComObject.h"
#include "framework/com/Registration.h"
#include "framework/window/WindowClass.h"

namespace {

const CLSID s_unitEditorId = {0x9c0b7a54, 0x5b0e, 0x4d7b, {0x8e, 0x55, 0x3f, 0x0a, 0x61, 0xd2, 0x7c, 0x18}};

CComModule s_module;

}  // namespace

template <>
struct KvPeClassIdOf<UnitEditor> {
    static const CLSID& Get() noexcept { return s_unitEditorId; }
};

namespace {

const std::array s_objects{
    fw::ObjectMapEntry{&s_unitEditorId, &CComObject<CKvPeEditTempl<UnitEditor>>::Create,
                       L"KvExtension.UnitEditor.1", nullptr, L"Unit editor", fw::ControlMiscStatus, nullptr},
};

fw::ModuleRegistration OwnRegistration() {
    // The type library that clients look up is that of KvPEXCtl.qmx, which registers it.
    return {fw::ModulePath(s_module.GetModuleInstance()), s_objects, fw::TypeLibraryPart::LeftOut};
}

}  // namespace

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, void*) {
    if (reason == DLL_PROCESS_ATTACH) {
        return SUCCEEDED(s_module.Init(s_objects, instance)) ? TRUE : FALSE;
    }
    if (reason == DLL_PROCESS_DETACH) {
        s_module.Term();
        fw::UnregisterWindowClasses(instance);
    }
    return TRUE;
}

STDAPI DllCanUnloadNow() {
    return s_module.GetLockCount() == 0 ? S_OK : S_FALSE;
}

STDAPI DllGetClassObject(REFCLSID classId, REFIID id, void** result) {
    return s_module.GetClassObject(classId, id, result);
}

STDAPI DllRegisterServer() {
    return fw::RegisterModule(OwnRegistration());
}

STDAPI DllUnregisterServer() {
    return fw::UnregisterModule(OwnRegistration());
}
