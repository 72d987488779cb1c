#pragma once

#include <string>

#include "framework/base/Handles.h"

namespace kvtest {

/// Full path of a file beside the test program.
[[nodiscard]] std::wstring BesideProgram(const wchar_t* name);

/// The module's library, loaded for the scope by its full path.
class LoadedModule {
public:
    LoadedModule();

    [[nodiscard]] HMODULE Handle() const { return m_library.Get(); }
    template <class Function>
    [[nodiscard]] Function* Export(const char* name) const {
        return reinterpret_cast<Function*>(reinterpret_cast<void*>(::GetProcAddress(m_library.Get(), name)));
    }

    [[nodiscard]] HRESULT GetClassObject(REFCLSID classId, IClassFactory** factory) const;
    [[nodiscard]] HRESULT CanUnloadNow() const;

private:
    fw::UniqueModule m_library;
};

}  // namespace kvtest
