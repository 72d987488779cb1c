#include "tests/control/core/LoadedModule.h"

#include "framework/com/Registration.h"

namespace kvtest {

std::wstring BesideProgram(const wchar_t* name) {
    const std::wstring program = fw::ModulePath(nullptr);
    return program.substr(0, program.find_last_of(L'\\') + 1) + name;
}

LoadedModule::LoadedModule()
    : m_library(
          ::LoadLibraryExW(BesideProgram(L"KvPEXCtl.qmx").c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH)) {
}

HRESULT LoadedModule::GetClassObject(REFCLSID classId, IClassFactory** factory) const {
    using Entry = HRESULT WINAPI(REFCLSID, REFIID, void**);
    return Export<Entry>("DllGetClassObject")(classId, IID_IClassFactory, reinterpret_cast<void**>(factory));
}

HRESULT LoadedModule::CanUnloadNow() const {
    return Export<HRESULT WINAPI()>("DllCanUnloadNow")();
}

}  // namespace kvtest
