#pragma once

#include "host_sdk/InterfaceSlots.h"
#include "host_sdk/KvDbObjectId.h"

/// A property that an extension adds to objects, which it knows by their ids.
struct IDynamicProperty : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE GetPropertyNameCount(long* count) = 0;
    /// The caller frees the name.
    virtual HRESULT STDMETHODCALLTYPE GetPropertyName(long index, BSTR* name) = 0;
    KV_RESERVED_SLOT(5)
    virtual HRESULT STDMETHODCALLTYPE IsPropertyReadOnly(BOOL* readOnly) = 0;
    KV_RESERVED_SLOT(7)
    KV_RESERVED_SLOT(8)
    /// The type in which values are stored, for editors that must know it before they write one.
    virtual HRESULT STDMETHODCALLTYPE GetCurrentValueType(VARTYPE* type) = 0;
    /// A null id is allowed: the property is then asked for an object that has none.
    virtual HRESULT STDMETHODCALLTYPE GetCurrentValueData(KvDbObjectId object, VARIANT* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetCurrentValueData(KvDbObjectId object, VARIANT value) = 0;
};

__CRT_UUID_DECL(IDynamicProperty, 0x8B384028, 0xACA9, 0x11D1, 0xA2, 0xB4, 0x08, 0x00, 0x09, 0xDC, 0x63, 0x9A)

/// The name by which list rows know the interface, of which they use the names.
using IDynamicPropertyNames = IDynamicProperty;
