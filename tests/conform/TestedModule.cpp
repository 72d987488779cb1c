#include "tests/conform/TestedModule.h"

#include "framework/com/Registration.h"
#include "refhost/rx/Modules.h"

namespace kvconform {
namespace {

std::wstring FullPath(const std::wstring& path) {
    wchar_t full[1024]{};
    const DWORD length = ::GetFullPathNameW(path.c_str(), 1024, full, nullptr);
    return length > 0 && length < 1024 ? full : path;
}

std::wstring RegisteredServer(REFCLSID classId) {
    wchar_t text[64]{};
    ::StringFromGUID2(classId, text, 64);
    wchar_t path[1024]{};
    DWORD size = sizeof path;
    const std::wstring key = std::wstring(L"CLSID\\") + text + L"\\InprocServer32";
    const LSTATUS read =
        ::RegGetValueW(HKEY_CLASSES_ROOT, key.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, path, &size);
    return read == ERROR_SUCCESS ? path : std::wstring();
}

}  // namespace

TestedModule::TestedModule(const std::wstring& path, REFCLSID registered)
    : m_path(path.empty() ? RegisteredServer(registered) : FullPath(path)) {
    Load();
}

bool TestedModule::Load() {
    if (!m_path.empty()) {
        m_library.Reset(::LoadLibraryExW(m_path.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH));
    }
    return IsLoaded();
}

std::wstring TestedModule::Folder() const {
    return m_path.substr(0, m_path.find_last_of(L'\\') + 1);
}

template <class Function>
Function* TestedModule::Export(const char* name) const {
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(::GetProcAddress(m_library.Get(), name)));
}

HRESULT TestedModule::GetClassObject(REFCLSID classId, REFIID id, void** result) const {
    *result = nullptr;
    auto* const entry = Export<HRESULT WINAPI(REFCLSID, REFIID, void**)>("DllGetClassObject");
    return entry ? entry(classId, id, result) : E_NOTIMPL;
}

HRESULT TestedModule::CanUnloadNow() const {
    auto* const entry = Export<HRESULT WINAPI()>("DllCanUnloadNow");
    return entry ? entry() : E_NOTIMPL;
}

HRESULT TestedModule::Create(REFCLSID classId, REFIID id, void** result) const {
    *result = nullptr;
    fw::ComPtr<IClassFactory> factory;
    const HRESULT found = GetClassObject(classId, IID_IClassFactory, factory.PutVoid());
    return FAILED(found) ? found : factory->CreateInstance(nullptr, id, result);
}

bool TestedModule::Reload() {
    const std::wstring name = m_path.substr(m_path.find_last_of(L'\\') + 1);
    m_library.Reset();
    kvhost::Modules::UnloadAll();
    ::CoFreeUnusedLibrariesEx(0, 0);
    const bool hasGone = ::GetModuleHandleW(name.c_str()) == nullptr;
    return Load() && hasGone;
}

}  // namespace kvconform
