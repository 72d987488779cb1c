#include "framework/com/Registration.h"

#include <array>

#include "framework/base/Hresult.h"
#include "framework/com/Guarded.h"
#include "framework/com/RegistryKeys.h"
#include "framework/com/TypeLibRegistration.h"

namespace fw {

namespace {

void Remember(HRESULT& first, HRESULT next) noexcept {
    if (SUCCEEDED(first) && FAILED(next)) {
        first = next;
    }
}

std::wstring ClassKey(const ObjectMapEntry& object) {
    return L"CLSID\\" + GuidText(*object.classId);
}

HRESULT WriteProgId(const RegistryKeys& keys, const wchar_t* progId, const ObjectMapEntry& object) {
    RETURN_IF_FAILED_EXPECTED(keys.SetText(progId, nullptr, object.description));
    return keys.SetText(std::wstring(progId) + L"\\CLSID", nullptr, GuidText(*object.classId));
}

HRESULT WriteClass(const RegistryKeys& keys, const ObjectMapEntry& object, const std::wstring& modulePath,
                   const TypeLibRegistration* library) {
    const std::wstring path = ClassKey(object);
    RETURN_IF_FAILED_EXPECTED(keys.SetText(path, nullptr, object.description));
    RETURN_IF_FAILED_EXPECTED(keys.SetText(path + L"\\InprocServer32", nullptr, modulePath));
    RETURN_IF_FAILED_EXPECTED(keys.SetText(path + L"\\InprocServer32", L"ThreadingModel", L"Apartment"));
    RETURN_IF_FAILED_EXPECTED(keys.SetText(path + L"\\ProgID", nullptr, object.progId));
    RETURN_IF_FAILED_EXPECTED(keys.MakeKey(path + L"\\Control"));
    RETURN_IF_FAILED_EXPECTED(keys.SetText(path + L"\\MiscStatus", nullptr, L"0"));
    RETURN_IF_FAILED_EXPECTED(
        keys.SetText(path + L"\\MiscStatus\\1", nullptr, std::to_wstring(object.miscStatus)));
    if (library) {
        RETURN_IF_FAILED_EXPECTED(keys.SetText(path + L"\\TypeLib", nullptr, library->Id()));
        RETURN_IF_FAILED_EXPECTED(keys.SetText(path + L"\\Version", nullptr, library->Version()));
    }
    RETURN_IF_FAILED_EXPECTED(WriteProgId(keys, object.progId, object));
    RETURN_HR_IF(S_OK, !object.versionIndependentProgId);
    RETURN_IF_FAILED_EXPECTED(
        keys.SetText(path + L"\\VersionIndependentProgID", nullptr, object.versionIndependentProgId));
    RETURN_IF_FAILED_EXPECTED(WriteProgId(keys, object.versionIndependentProgId, object));
    return keys.SetText(std::wstring(object.versionIndependentProgId) + L"\\CurVer", nullptr, object.progId);
}

HRESULT RemoveProgId(const RegistryKeys& keys, const wchar_t* progId, const ObjectMapEntry& object) {
    const bool isOurs =
        progId && keys.GetText(std::wstring(progId) + L"\\CLSID") == GuidText(*object.classId);
    return isOurs ? keys.RemoveTree(progId) : S_FALSE;
}

HRESULT RemoveClass(const RegistryKeys& keys, const ObjectMapEntry& object) {
    HRESULT first = RemoveProgId(keys, object.progId, object);
    Remember(first, RemoveProgId(keys, object.versionIndependentProgId, object));
    Remember(first, keys.RemoveTree(ClassKey(object)));
    return first;
}

HRESULT WriteAll(const ModuleRegistration& registration) {
    const RegistryKeys keys(registration.rootKey);
    const bool hasLibrary = registration.typeLibrary == TypeLibraryPart::Registered;
    TypeLibRegistration library;
    if (hasLibrary) {
        RETURN_IF_FAILED_EXPECTED(library.Load(registration.modulePath));
        RETURN_IF_FAILED_EXPECTED(library.Write(keys));
    }
    for (const ObjectMapEntry& object : registration.objects) {
        if (object.progId) {
            RETURN_IF_FAILED_EXPECTED(
                WriteClass(keys, object, registration.modulePath, hasLibrary ? &library : nullptr));
        }
    }
    return S_OK;
}

HRESULT RemoveAll(const ModuleRegistration& registration) {
    const RegistryKeys keys(registration.rootKey);
    HRESULT first = S_OK;
    for (const ObjectMapEntry& object : registration.objects) {
        if (object.progId) {
            Remember(first, RemoveClass(keys, object));
        }
    }
    if (registration.typeLibrary == TypeLibraryPart::Registered) {
        TypeLibRegistration library;
        const HRESULT loaded = library.Load(registration.modulePath);
        Remember(first, loaded);
        if (SUCCEEDED(loaded)) {
            Remember(first, library.Remove(keys));
        }
    }
    for (const wchar_t* parent : {L"CLSID", L"Interface", L"TypeLib"}) {
        Remember(first, keys.RemoveIfEmpty(parent));
    }
    return FAILED(first) ? first : S_OK;
}

}  // namespace

std::wstring ModulePath(HINSTANCE instance) {
    // A buffer that is too small is not told reliably, so only a result well inside the buffer counts.
    constexpr DWORD s_longestPath = 32768;
    std::wstring path(s_longestPath, L'\0');
    const DWORD length = ::GetModuleFileNameW(instance, path.data(), s_longestPath);
    path.resize(length < s_longestPath ? length : 0);
    return path;
}

HRESULT RegisterModule(const ModuleRegistration& registration) noexcept {
    const HRESULT written = Guarded([&] { return WriteAll(registration); });
    if (FAILED(written)) {
        // The reason why registration failed matters more than what the way back meets.
        Ignore(UnregisterModule(registration));
    }
    return written;
}

HRESULT UnregisterModule(const ModuleRegistration& registration) noexcept {
    return Guarded([&] { return RemoveAll(registration); });
}

}  // namespace fw
