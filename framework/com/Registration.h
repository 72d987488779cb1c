#pragma once

#include <span>
#include <string>

#include "framework/base/Export.h"
#include "framework/base/WindowsApi.h"
#include "framework/com/CComModule.h"

namespace fw {

/// Whether a module brings a type library that clients find by its id.
enum class TypeLibraryPart {
    Registered,  ///< its own, as resource 1
    LeftOut,     ///< none, or one that another module registers
};

/// What is written to the user's part of the registry for one module.
struct ModuleRegistration {
    std::wstring modulePath;  // full path
    std::span<const ObjectMapEntry> objects;
    TypeLibraryPart typeLibrary = TypeLibraryPart::Registered;
    const wchar_t* rootKey = L"Software\\Classes";  // under HKEY_CURRENT_USER
};

/// The full path of a loaded module, however long; empty when it cannot be had.
[[nodiscard]] FW_API std::wstring ModulePath(HINSTANCE instance);

/// Registers all classes that have a ProgID, and the type library with its dual interfaces if it takes part,
/// for the current user. On failure everything that belongs to the module is taken out again and the first
/// failure is returned.
[[nodiscard]] FW_API HRESULT RegisterModule(const ModuleRegistration& registration) noexcept;

/// Takes out all that RegisterModule writes, and parent keys that are empty afterwards. What is missing or
/// belongs to another module is passed over. Goes on after a failure and returns the first one.
[[nodiscard]] FW_API HRESULT UnregisterModule(const ModuleRegistration& registration) noexcept;

}  // namespace fw
