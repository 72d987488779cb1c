#include "families/CalculatorLibraries.h"

#include "framework/base/WindowsApi.h"

namespace {

using UnitConstructor = void (*)(KvCalCompoundUnit* place);

template <class Function>
Function FindIn(HMODULE library, const char* name) {
    return reinterpret_cast<Function>(reinterpret_cast<void*>(::GetProcAddress(library, name)));
}

template <class Function>
Function LoadAndFind(const wchar_t* name, const char* function) {
    HMODULE library = ::GetModuleHandleW(name);
    const bool isLoadedHere = library == nullptr;
    if (isLoadedHere) {
        library = ::LoadLibraryW(name);
    }
    if (library == nullptr) {
        return nullptr;
    }
    const auto found = FindIn<Function>(library, function);
    if (found == nullptr && isLoadedHere) {
        ::FreeLibrary(library);
    }
    return found;
}

}  // namespace

KvInvokeDialog FindCalculatorDialog(const wchar_t* library) {
    return LoadAndFind<KvInvokeDialog>(library, KVBRIDGE_INVOKE_DIALOG);
}

bool ConstructCalculatorUnit(KvCalCompoundUnit* place) {
    const auto construct = LoadAndFind<UnitConstructor>(KVCALC_LIBRARY, KVCALC_UNIT_CONSTRUCTOR);
    if (construct != nullptr) {
        construct(place);
    }
    return construct != nullptr;
}
