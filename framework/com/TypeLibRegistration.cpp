#include "framework/com/TypeLibRegistration.h"

#include <array>
#include <cwchar>
#include <memory>

#include "framework/base/Hresult.h"
#include "framework/com/Bstr.h"
#include "framework/com/ComPtr.h"

namespace fw {

namespace {

constexpr const wchar_t* s_automationProxy = L"{00020424-0000-0000-C000-000000000046}";
constexpr const wchar_t* s_dispatchProxy = L"{00020420-0000-0000-C000-000000000046}";

std::wstring HexText(unsigned long number) {
    std::array<wchar_t, 16> text{};
    std::swprintf(text.data(), text.size(), L"%lx", number);
    return text.data();
}

/// The system's marshaller for an interface; null when the interface is not for other apartments.
const wchar_t* ProxyOf(const TYPEATTR& attributes) noexcept {
    if (attributes.wTypeFlags & (TYPEFLAG_FDUAL | TYPEFLAG_FOLEAUTOMATION)) {
        return s_automationProxy;
    }
    return attributes.typekind == TKIND_DISPATCH ? s_dispatchProxy : nullptr;
}

void Remember(HRESULT& first, HRESULT next) noexcept {
    if (SUCCEEDED(first) && FAILED(next)) {
        first = next;
    }
}

}  // namespace

std::wstring GuidText(REFGUID id) {
    std::array<wchar_t, 40> text{};
    ::StringFromGUID2(id, text.data(), static_cast<int>(text.size()));
    return text.data();
}

HRESULT TypeLibRegistration::Load(const std::wstring& modulePath) {
    ComPtr<ITypeLib> library;
    RETURN_IF_FAILED_EXPECTED(::LoadTypeLibEx(modulePath.c_str(), REGKIND_NONE, library.Put()));
    TLIBATTR* attributes = nullptr;
    RETURN_IF_FAILED(library->GetLibAttr(&attributes));
    const auto release = [&library](TLIBATTR* held) { library->ReleaseTLibAttr(held); };
    const std::unique_ptr<TLIBATTR, decltype(release)> holder(attributes, release);
    Bstr name;
    Bstr description;
    RETURN_IF_FAILED(library->GetDocumentation(-1, name.Put(), description.Put(), nullptr, nullptr));

    m_modulePath = modulePath;
    m_id = GuidText(attributes->guid);
    m_version = HexText(attributes->wMajorVerNum) + L'.' + HexText(attributes->wMinorVerNum);
    m_language = HexText(attributes->lcid);
    m_flags = HexText(attributes->wLibFlags & ~static_cast<unsigned>(LIBFLAG_FHASDISKIMAGE));
    m_description = description.IsEmpty() ? name.View() : description.View();
    return LoadInterfaces(*library.Get());
}

HRESULT TypeLibRegistration::LoadInterfaces(ITypeLib& library) {
    m_interfaces.clear();
    const UINT count = library.GetTypeInfoCount();
    for (UINT i = 0; i < count; ++i) {
        ComPtr<ITypeInfo> info;
        RETURN_IF_FAILED(library.GetTypeInfo(i, info.Put()));
        TYPEATTR* attributes = nullptr;
        RETURN_IF_FAILED(info->GetTypeAttr(&attributes));
        const auto release = [&info](TYPEATTR* held) { info->ReleaseTypeAttr(held); };
        const std::unique_ptr<TYPEATTR, decltype(release)> holder(attributes, release);
        const bool isInterface =
            attributes->typekind == TKIND_DISPATCH || attributes->typekind == TKIND_INTERFACE;
        const wchar_t* const proxy = isInterface ? ProxyOf(*attributes) : nullptr;
        if (!proxy) {
            continue;
        }
        Bstr name;
        RETURN_IF_FAILED(info->GetDocumentation(MEMBERID_NIL, name.Put(), nullptr, nullptr, nullptr));
        m_interfaces.push_back({GuidText(attributes->guid), name.Text(), proxy});
    }
    return S_OK;
}

HRESULT TypeLibRegistration::Write(const RegistryKeys& keys) const {
    const std::wstring version = L"TypeLib\\" + m_id + L'\\' + m_version;
    const std::wstring folder = m_modulePath.substr(0, m_modulePath.find_last_of(L"\\/"));
    RETURN_IF_FAILED_EXPECTED(keys.SetText(version, nullptr, m_description));
    RETURN_IF_FAILED_EXPECTED(keys.SetText(version + L'\\' + m_language + L"\\win64", nullptr, m_modulePath));
    RETURN_IF_FAILED_EXPECTED(keys.SetText(version + L"\\FLAGS", nullptr, m_flags));
    RETURN_IF_FAILED_EXPECTED(keys.SetText(version + L"\\HELPDIR", nullptr, folder));
    for (const Interface& each : m_interfaces) {
        const std::wstring path = L"Interface\\" + each.id;
        RETURN_IF_FAILED_EXPECTED(keys.SetText(path, nullptr, each.name));
        RETURN_IF_FAILED_EXPECTED(keys.SetText(path + L"\\ProxyStubClsid32", nullptr, each.proxy));
        RETURN_IF_FAILED_EXPECTED(keys.SetText(path + L"\\TypeLib", nullptr, m_id));
        RETURN_IF_FAILED_EXPECTED(keys.SetText(path + L"\\TypeLib", L"Version", m_version));
    }
    return S_OK;
}

HRESULT TypeLibRegistration::Remove(const RegistryKeys& keys) const {
    HRESULT first = S_OK;
    for (const Interface& each : m_interfaces) {
        const std::wstring path = L"Interface\\" + each.id;
        if (keys.GetText(path + L"\\TypeLib") == m_id) {
            Remember(first, keys.RemoveTree(path));
        }
    }
    Remember(first, keys.RemoveTree(L"TypeLib\\" + m_id + L'\\' + m_version));
    // Another version of the library may be registered beside this one.
    Remember(first, keys.RemoveIfEmpty(L"TypeLib\\" + m_id));
    return first;
}

}  // namespace fw
