#pragma once

#include <string>

#include "framework/base/Handles.h"
#include "framework/com/ComPtr.h"

namespace kvconform {

/// The module whose classes are checked: a file, or what is registered for the classes.
class TestedModule {
public:
    /// Loads the file; or, with an empty path, the server registered for `registered`.
    explicit TestedModule(const std::wstring& path, REFCLSID registered);

    [[nodiscard]] bool IsLoaded() const { return static_cast<bool>(m_library); }
    /// The full path of the file, loaded or not; empty when none is registered.
    [[nodiscard]] const std::wstring& Path() const { return m_path; }
    /// The folder with a backslash at its end.
    [[nodiscard]] std::wstring Folder() const;

    // The module's entry points; E_NOTIMPL when it has none.
    [[nodiscard]] HRESULT GetClassObject(REFCLSID classId, REFIID id, void** result) const;
    [[nodiscard]] HRESULT CanUnloadNow() const;

    [[nodiscard]] HRESULT Create(REFCLSID classId, REFIID id, void** result) const;

    /// Lets the library go and loads it again. False when it stayed loaded in between.
    [[nodiscard]] bool Reload();

private:
    template <class Function>
    [[nodiscard]] Function* Export(const char* name) const;
    bool Load();

    std::wstring m_path;
    fw::UniqueModule m_library;
};

}  // namespace kvconform
