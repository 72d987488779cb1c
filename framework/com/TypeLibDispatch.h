#pragma once

#include "framework/base/Export.h"
#include "framework/base/WindowsApi.h"
#include "framework/com/CComModule.h"

namespace fw {

/// IDispatch through the type library of a module. An invoked method has its own border.
struct FW_API TypeLibCalls {
    static HRESULT GetTypeInfoCount(UINT* count) noexcept;
    static HRESULT GetTypeInfo(CComModule* module, REFIID interfaceId, UINT index,
                               ITypeInfo** result) noexcept;
    static HRESULT GetIDsOfNames(CComModule* module, REFIID interfaceId, REFIID reserved, LPOLESTR* names,
                                 UINT count, DISPID* ids) noexcept;
    static HRESULT Invoke(CComModule* module, REFIID interfaceId, void* instance, DISPID id, REFIID reserved,
                          WORD flags, DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                          UINT* badArgument) noexcept;
};

/// Answers IDispatch for Interface, a dual interface of the module's type library.
/// Derived is a class with fw::ComObjectRoot.
template <class Derived, class Interface>
class TypeLibDispatch : public Interface {
public:
    // IDispatch
    STDMETHODIMP GetTypeInfoCount(UINT* count) override { return TypeLibCalls::GetTypeInfoCount(count); }
    STDMETHODIMP GetTypeInfo(UINT index, LCID, ITypeInfo** result) override {
        return TypeLibCalls::GetTypeInfo(Module(), __uuidof(Interface), index, result);
    }
    STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
        return TypeLibCalls::GetIDsOfNames(Module(), __uuidof(Interface), reserved, names, count, ids);
    }
    STDMETHODIMP Invoke(DISPID id, REFIID reserved, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO* exception, UINT* badArgument) override {
        return TypeLibCalls::Invoke(Module(), __uuidof(Interface), static_cast<Interface*>(this), id,
                                    reserved, flags, parameters, result, exception, badArgument);
    }

protected:
    ~TypeLibDispatch() = default;

private:
    CComModule* Module() const noexcept { return static_cast<const Derived*>(this)->GetModule(); }
};

}  // namespace fw
