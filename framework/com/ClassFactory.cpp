#include "framework/com/ClassFactory.h"

#include "framework/base/Hresult.h"

namespace fw {

STDMETHODIMP ClassFactory::QueryInterface(REFIID id, void** result) {
    RETURN_IF_NULL_POINTER(result);
    *result = nullptr;
    RETURN_HR_IF(E_NOINTERFACE, !::IsEqualIID(id, IID_IUnknown) && !::IsEqualIID(id, IID_IClassFactory));
    *result = static_cast<IClassFactory*>(this);
    AddRef();
    return S_OK;
}

// Clients of other threads may ask for a factory, so its count is atomic although its objects' counts are
// not.
STDMETHODIMP_(ULONG) ClassFactory::AddRef() {
    const LONG references = ::InterlockedIncrement(&m_references);
    m_module.Lock();
    return static_cast<ULONG>(references);
}

STDMETHODIMP_(ULONG) ClassFactory::Release() {
    CComModule& module = m_module;
    const LONG references = ::InterlockedDecrement(&m_references);
    if (references == 0) {
        delete this;
        return 0;
    }
    module.Unlock();
    return static_cast<ULONG>(references);
}

STDMETHODIMP ClassFactory::CreateInstance(IUnknown* outer, REFIID id, void** result) {
    RETURN_IF_NULL_POINTER(result);
    *result = nullptr;
    RETURN_HR_IF(CLASS_E_NOAGGREGATION, outer != nullptr);
    return m_create(&m_module, id, result);
}

STDMETHODIMP ClassFactory::LockServer(BOOL lock) {
    if (lock) {
        m_module.Lock();
    } else {
        m_module.Unlock();
    }
    return S_OK;
}

}  // namespace fw
