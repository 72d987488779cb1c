#pragma once

#include "framework/base/WindowsApi.h"
#include "framework/com/CComModule.h"

namespace fw {

/// The class factory of one row of a module's class table. The module keeps one reference until Term; while a
/// client holds another, the module is locked.
class ClassFactory final : public IClassFactory {
public:
    /// The caller gets the first reference, which holds no lock.
    ClassFactory(CComModule& module, CreateFunction create) noexcept : m_module(module), m_create(create) {}

    // IUnknown
    STDMETHODIMP QueryInterface(REFIID id, void** result) override;
    STDMETHODIMP_(ULONG) AddRef() override;
    STDMETHODIMP_(ULONG) Release() override;
    // IClassFactory
    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID id, void** result) override;
    STDMETHODIMP LockServer(BOOL lock) override;

private:
    ~ClassFactory() = default;

    CComModule& m_module;
    CreateFunction m_create;
    LONG m_references = 1;
};

}  // namespace fw
