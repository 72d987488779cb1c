#include "framework/com/CComModule.h"

#include <algorithm>
#include <utility>

#include "framework/base/Hresult.h"
#include "framework/com/ClassFactory.h"
#include "framework/com/Guarded.h"
#include "framework/com/Registration.h"

namespace {

class SectionLock {
public:
    explicit SectionLock(CRITICAL_SECTION& section) noexcept : m_section(section) {
        ::EnterCriticalSection(&m_section);
    }
    ~SectionLock() { ::LeaveCriticalSection(&m_section); }
    SectionLock(const SectionLock&) = delete;
    SectionLock& operator=(const SectionLock&) = delete;

private:
    CRITICAL_SECTION& m_section;
};

}  // namespace

CComModule::CComModule() noexcept {
    ::InitializeCriticalSection(&m_section);
}

CComModule::~CComModule() {
    ::DeleteCriticalSection(&m_section);
}

HRESULT CComModule::Init(std::span<const fw::ObjectMapEntry> objects, HINSTANCE instance) noexcept {
    return fw::Guarded([&] {
        m_factories.clear();
        m_factories.resize(objects.size());
        m_objects = objects;
        m_instance = instance;
        return S_OK;
    });
}

void CComModule::Term() noexcept {
    // Everything is taken out before it is released: what a release calls finds an ended module.
    const std::span<const fw::ObjectMapEntry> objects = std::exchange(m_objects, {});
    std::exchange(m_factories, {}).clear();
    std::exchange(m_typeInfos, {}).clear();
    m_typeLib.Reset();
    for (const fw::ObjectMapEntry& object : objects) {
        if (object.term) {
            object.term();
        }
    }
}

LONG CComModule::Lock() noexcept {
    return ++m_lockCount;
}

LONG CComModule::Unlock() noexcept {
    return --m_lockCount;
}

const fw::ObjectMapEntry* CComModule::FindObject(REFCLSID classId) const noexcept {
    const auto found = std::ranges::find_if(m_objects, [&](const fw::ObjectMapEntry& object) {
        return ::IsEqualCLSID(*object.classId, classId);
    });
    return found == m_objects.end() ? nullptr : &*found;
}

HRESULT CComModule::GetClassObject(REFCLSID classId, REFIID id, void** result) noexcept {
    RETURN_IF_NULL_POINTER(result);
    *result = nullptr;
    return fw::Guarded([&] {
        const fw::ObjectMapEntry* const object = FindObject(classId);
        RETURN_HR_IF(CLASS_E_CLASSNOTAVAILABLE, !object || !object->create);
        fw::ComPtr<IClassFactory> factory;
        RETURN_IF_FAILED_EXPECTED(GetFactory(static_cast<std::size_t>(object - m_objects.data()), factory));
        return factory->QueryInterface(id, result);
    });
}

HRESULT CComModule::GetFactory(std::size_t row, fw::ComPtr<IClassFactory>& factory) {
    const SectionLock lock(m_section);
    fw::ComPtr<IClassFactory>& place = m_factories[row];
    if (!place) {
        place.Attach(new fw::ClassFactory(*this, m_objects[row].create));
    }
    factory = place;
    return S_OK;
}

HRESULT CComModule::LoadModuleTypeLib() {
    if (m_typeLib) {
        return S_OK;
    }
    const std::wstring path = fw::ModulePath(m_instance);
    RETURN_HR_IF(E_FAIL, path.empty());
    return ::LoadTypeLibEx(path.c_str(), REGKIND_NONE, m_typeLib.Put());
}

HRESULT CComModule::GetTypeLib(ITypeLib** result) noexcept {
    RETURN_IF_NULL_POINTER(result);
    *result = nullptr;
    return fw::Guarded([&] {
        const SectionLock lock(m_section);
        RETURN_IF_FAILED(LoadModuleTypeLib());
        return m_typeLib.CopyTo(result);
    });
}

HRESULT CComModule::GetTypeInfo(REFIID id, ITypeInfo** result) noexcept {
    RETURN_IF_NULL_POINTER(result);
    *result = nullptr;
    return fw::Guarded([&] {
        const SectionLock lock(m_section);
        for (const CachedTypeInfo& cached : m_typeInfos) {
            if (::IsEqualIID(cached.id, id)) {
                return cached.info.CopyTo(result);
            }
        }
        RETURN_IF_FAILED(LoadModuleTypeLib());
        fw::ComPtr<ITypeInfo> info;
        RETURN_IF_FAILED(m_typeLib->GetTypeInfoOfGuid(id, info.Put()));
        m_typeInfos.push_back({id, info});
        return info.CopyTo(result);
    });
}
