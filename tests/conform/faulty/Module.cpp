// A component server with one class of the class table, which is wrong in the way that the run asks for.

#include <array>

#include "framework/com/CComObject.h"
#include "framework/window/WindowClass.h"
#include "tests/conform/faulty/FaultyRow.h"
#include "tests/conform/faulty/LeftEntries.h"

namespace {

CComModule s_module;

const std::array s_objects{
    fw::ObjectMapEntry{&CLSID_KvPePropertyEditorText, &CComObject<FaultyRow>::Create, nullptr, nullptr,
                       L"KvPePropertyEditorText Class", fw::ControlMiscStatus, nullptr},
};

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
    LeaveEntries();
    return s_module.GetClassObject(classId, id, result);
}
