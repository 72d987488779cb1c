#pragma once

#include <string>

#include "framework/base/UniqueHandle.h"
#include "framework/base/WindowsApi.h"

namespace fw {

/// Writes and removes keys below one key of HKEY_CURRENT_USER. Paths are relative to it.
class RegistryKeys {
public:
    explicit RegistryKeys(std::wstring root) : m_root(std::move(root)) {}

    /// Makes the key if need be and sets a text value; a null name is the key's default value.
    [[nodiscard]] HRESULT SetText(const std::wstring& path, const wchar_t* name,
                                  const std::wstring& text) const;
    /// Makes the key with the parents that it needs.
    [[nodiscard]] HRESULT MakeKey(const std::wstring& path) const;
    /// The key's default value; empty when the key or the value is missing.
    [[nodiscard]] std::wstring GetText(const std::wstring& path) const;
    /// Removes a key with all below it; S_FALSE when there is none.
    [[nodiscard]] HRESULT RemoveTree(const std::wstring& path) const;
    /// Removes a key that has neither values nor keys below it; S_FALSE when it stays or is missing.
    [[nodiscard]] HRESULT RemoveIfEmpty(const std::wstring& path) const;

private:
    struct KeyPolicy {
        using Handle = HKEY;
        static Handle Null() { return nullptr; }
        static void Close(Handle key) { ::RegCloseKey(key); }
    };
    using UniqueKey = UniqueHandle<KeyPolicy>;

    std::wstring FullPath(const std::wstring& path) const { return m_root + L'\\' + path; }
    HRESULT Create(const std::wstring& path, UniqueKey& key) const;

    std::wstring m_root;
};

}  // namespace fw
