#pragma once

#include "host_sdk/InterfaceSlots.h"

/// The form of IDynamicProperty that is given the object itself; preferred where both are there.
struct IDynamicPropertyByObject : IUnknown {
    KV_RESERVED_SLOT(3)
    KV_RESERVED_SLOT(4)
    KV_RESERVED_SLOT(5)
    virtual HRESULT STDMETHODCALLTYPE IsPropertyReadOnly(BOOL* readOnly) = 0;
    KV_RESERVED_SLOT(7)
    KV_RESERVED_SLOT(8)
    /// The type in which values are stored, for editors that must know it before they write one.
    virtual HRESULT STDMETHODCALLTYPE GetCurrentValueType(VARTYPE* type) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetCurrentValueData(IUnknown* object, VARIANT* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetCurrentValueData(IUnknown* object, VARIANT value) = 0;
};

__CRT_UUID_DECL(IDynamicPropertyByObject, 0x9CAF41C2, 0xCA86, 0x4FFB, 0xB0, 0x5A, 0xAC, 0x43, 0xC4, 0x24,
                0xD0, 0x76)
