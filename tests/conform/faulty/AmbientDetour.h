#pragma once

#include "framework/com/ComPtr.h"

/// Stands between the control and its site, and asks for ambient properties in the wrong way that the run
/// asks for: as a method, or with an argument.
class AmbientDetour final : public IDispatch {
public:
    /// The site itself where the run asks for no such fault.
    static fw::ComPtr<IDispatch> Around(const fw::ComPtr<IDispatch>& site);

    // IUnknown
    STDMETHODIMP QueryInterface(REFIID id, void** result) override {
        return m_site->QueryInterface(id, result);
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++m_references; }
    STDMETHODIMP_(ULONG) Release() override;
    // IDispatch
    STDMETHODIMP GetTypeInfoCount(UINT* count) override { return m_site->GetTypeInfoCount(count); }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception, UINT* badArgument) override;

private:
    explicit AmbientDetour(const fw::ComPtr<IDispatch>& site) : m_site(site) {}
    ~AmbientDetour() = default;

    fw::ComPtr<IDispatch> m_site;
    ULONG m_references = 0;
};
