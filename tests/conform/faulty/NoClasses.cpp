// The entry points of a component server without a class.

#include "framework/base/WindowsApi.h"

STDAPI DllCanUnloadNow() {
    return S_OK;
}

STDAPI DllGetClassObject(REFCLSID, REFIID, void** result) {
    *result = nullptr;
    return CLASS_E_CLASSNOTAVAILABLE;
}
