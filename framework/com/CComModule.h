#pragma once

#include <atomic>
#include <span>
#include <vector>

#include "framework/base/Export.h"
#include "framework/base/ModuleState.h"
#include "framework/base/WindowsApi.h"
#include "framework/com/ComPtr.h"

class CComModule;

namespace fw {

using CreateFunction = HRESULT (*)(CComModule* module, REFIID id, void** result) noexcept;
using TermFunction = void (*)();

/// One row of a module's class table. Texts and ids live as long as the module.
struct ObjectMapEntry {
    const CLSID* classId;
    CreateFunction create;                    // &CComObject<T>::Create; null: CLASS_E_CLASSNOTAVAILABLE
    const wchar_t* progId;                    // null: the class is not registered
    const wchar_t* versionIndependentProgId;  // null: none
    const wchar_t* description;
    DWORD miscStatus;   // OLEMISC bits that the control answers and that are registered
    TermFunction term;  // runs once in CComModule::Term; null: nothing to do
};

/// What an embedded control of this framework registers as its OLEMISC bits.
inline constexpr DWORD ControlMiscStatus = OLEMISC_RECOMPOSEONRESIZE | OLEMISC_CANTLINKINSIDE |
                                           OLEMISC_INSIDEOUT | OLEMISC_ACTIVATEWHENVISIBLE |
                                           OLEMISC_SETCLIENTSITEFIRST;

}  // namespace fw

/// A module as component server: its class table, class factories, lock count and type library.
class FW_API CComModule {
public:
    CComModule() noexcept;
    virtual ~CComModule();
    CComModule(const CComModule&) = delete;
    CComModule& operator=(const CComModule&) = delete;

    /// The table must outlive the module object. By default the instance is that of the calling module.
    [[nodiscard]] HRESULT Init(std::span<const fw::ObjectMapEntry> objects,
                               HINSTANCE instance = fw::ThisModule()) noexcept;
    /// Releases every class factory and the type information, then calls each row's term function.
    void Term() noexcept;

    /// Objects, clients' references to class factories and IClassFactory::LockServer hold locks.
    virtual LONG Lock() noexcept;
    virtual LONG Unlock() noexcept;
    LONG GetLockCount() const noexcept { return m_lockCount.load(); }

    /// Hands out the class factory, made on first use and kept until Term. CLASS_E_CLASSNOTAVAILABLE for an
    /// unknown class and for one without a creator.
    [[nodiscard]] HRESULT GetClassObject(REFCLSID classId, REFIID id, void** result) noexcept;

    /// The description of an interface or dispinterface from the module's own type library (resource 1).
    [[nodiscard]] HRESULT GetTypeInfo(REFIID id, ITypeInfo** result) noexcept;
    [[nodiscard]] HRESULT GetTypeLib(ITypeLib** result) noexcept;

    HINSTANCE GetModuleInstance() const noexcept { return m_instance; }
    std::span<const fw::ObjectMapEntry> GetObjects() const noexcept { return m_objects; }
    /// The row of a class; null when the table has none.
    const fw::ObjectMapEntry* FindObject(REFCLSID classId) const noexcept;

private:
    struct CachedTypeInfo {
        IID id;
        fw::ComPtr<ITypeInfo> info;
    };

    HRESULT GetFactory(std::size_t row, fw::ComPtr<IClassFactory>& factory);
    HRESULT LoadModuleTypeLib();

    HINSTANCE m_instance = nullptr;
    std::span<const fw::ObjectMapEntry> m_objects;
    std::vector<fw::ComPtr<IClassFactory>> m_factories;  // one place per row
    fw::ComPtr<ITypeLib> m_typeLib;
    std::vector<CachedTypeInfo> m_typeInfos;
    std::atomic<LONG> m_lockCount{0};
    CRITICAL_SECTION m_section;
};
