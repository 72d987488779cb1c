#include "framework/com/RegistryKeys.h"

#include "framework/base/Hresult.h"

namespace fw {

namespace {

HRESULT RemovalResult(LSTATUS status) noexcept {
    return status == ERROR_FILE_NOT_FOUND || status == ERROR_PATH_NOT_FOUND ? S_FALSE
                                                                            : HRESULT_FROM_WIN32(status);
}

}  // namespace

HRESULT RegistryKeys::Create(const std::wstring& path, UniqueKey& key) const {
    HKEY made = nullptr;
    const LSTATUS status =
        ::RegCreateKeyExW(HKEY_CURRENT_USER, FullPath(path).c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                          KEY_READ | KEY_WRITE, nullptr, &made, nullptr);
    key.Reset(made);
    return HRESULT_FROM_WIN32(status);
}

HRESULT RegistryKeys::MakeKey(const std::wstring& path) const {
    UniqueKey key;
    return Create(path, key);
}

HRESULT RegistryKeys::SetText(const std::wstring& path, const wchar_t* name, const std::wstring& text) const {
    UniqueKey key;
    RETURN_IF_FAILED_EXPECTED(Create(path, key));
    const auto bytes = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
    return HRESULT_FROM_WIN32(
        ::RegSetValueExW(key.Get(), name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()), bytes));
}

std::wstring RegistryKeys::GetText(const std::wstring& path) const {
    const std::wstring fullPath = FullPath(path);
    DWORD bytes = 0;
    if (::RegGetValueW(HKEY_CURRENT_USER, fullPath.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, nullptr,
                       &bytes) != ERROR_SUCCESS) {
        return {};
    }
    std::wstring text(bytes / sizeof(wchar_t) + 1, L'\0');
    bytes = static_cast<DWORD>(text.size() * sizeof(wchar_t));
    if (::RegGetValueW(HKEY_CURRENT_USER, fullPath.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, text.data(),
                       &bytes) != ERROR_SUCCESS) {
        return {};
    }
    text.resize(::wcslen(text.c_str()));
    return text;
}

HRESULT RegistryKeys::RemoveTree(const std::wstring& path) const {
    return RemovalResult(::RegDeleteTreeW(HKEY_CURRENT_USER, FullPath(path).c_str()));
}

HRESULT RegistryKeys::RemoveIfEmpty(const std::wstring& path) const {
    const std::wstring fullPath = FullPath(path);
    HKEY opened = nullptr;
    const LSTATUS status = ::RegOpenKeyExW(HKEY_CURRENT_USER, fullPath.c_str(), 0, KEY_READ, &opened);
    if (status != ERROR_SUCCESS) {
        return RemovalResult(status);
    }
    UniqueKey key(opened);
    DWORD keys = 0;
    DWORD values = 0;
    const LSTATUS counted = ::RegQueryInfoKeyW(key.Get(), nullptr, nullptr, nullptr, &keys, nullptr, nullptr,
                                               &values, nullptr, nullptr, nullptr, nullptr);
    RETURN_HR_IF(HRESULT_FROM_WIN32(counted), counted != ERROR_SUCCESS);
    RETURN_HR_IF(S_FALSE, keys != 0 || values != 0);
    key.Reset();
    return RemovalResult(::RegDeleteKeyW(HKEY_CURRENT_USER, fullPath.c_str()));
}

}  // namespace fw
