#pragma once

#include "host_sdk/InterfaceSlots.h"

/// The closed set of values that a dynamic property takes, in the order in which a user is offered them.
struct IDynamicPropertyEnum : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE GetValueCount(long* count) = 0;
    /// The text for the user; the caller frees it.
    virtual HRESULT STDMETHODCALLTYPE GetValueName(long index, BSTR* name) = 0;
    /// The value itself, as the property is given it; the caller clears it.
    virtual HRESULT STDMETHODCALLTYPE GetValueData(long index, VARIANT* data) = 0;
};

__CRT_UUID_DECL(IDynamicPropertyEnum, 0x8B384028, 0xACB1, 0x11D1, 0xA2, 0xB4, 0x08, 0x00, 0x09, 0xDC, 0x63,
                0x9A)
