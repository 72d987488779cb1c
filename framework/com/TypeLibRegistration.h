#pragma once

#include <string>
#include <vector>

#include "framework/base/WindowsApi.h"
#include "framework/com/RegistryKeys.h"

namespace fw {

/// What the registry tells of a type library. It is read from the library and written by hand, since the
/// system's own functions write to the machine's part of the registry.
class TypeLibRegistration {
public:
    /// Reads the library that is resource 1 of a module.
    [[nodiscard]] HRESULT Load(const std::wstring& modulePath);

    [[nodiscard]] HRESULT Write(const RegistryKeys& keys) const;
    /// Goes on after a failure and returns the first one.
    [[nodiscard]] HRESULT Remove(const RegistryKeys& keys) const;

    const std::wstring& Id() const noexcept { return m_id; }
    const std::wstring& Version() const noexcept { return m_version; }

private:
    struct Interface {
        std::wstring id;
        std::wstring name;
        const wchar_t* proxy;  // class id of the system's marshaller for this kind
    };

    HRESULT LoadInterfaces(ITypeLib& library);

    std::wstring m_modulePath;
    std::wstring m_id;
    std::wstring m_version;   // "1.0"
    std::wstring m_language;  // locale id in hexadecimal digits
    std::wstring m_flags;
    std::wstring m_description;
    std::vector<Interface> m_interfaces;
};

/// A GUID in braces, as the registry has it.
[[nodiscard]] std::wstring GuidText(REFGUID id);

}  // namespace fw
