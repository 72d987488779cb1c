#pragma once

#include "host_sdk/InterfaceSlots.h"

/// Element access to an array property, with the object as an argument; preferred over
/// IPropertyElementAccess.
struct IPropertyElementAccess2 : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE GetElementValue(long dispid, IDispatch* object, unsigned key,
                                                      VARIANT* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetElementValue(long dispid, IDispatch* object, unsigned key,
                                                      VARIANT value) = 0;
    KV_RESERVED_SLOT(5)
    /// Numbers per group, as 2 or 3 per vertex.
    virtual HRESULT STDMETHODCALLTYPE GetGroupSize(long dispid, IDispatch* object, unsigned* size) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetGroupCount(long dispid, IDispatch* object, long* count) = 0;
};

__CRT_UUID_DECL(IPropertyElementAccess2, 0xD0F45FEB, 0x71D5, 0x44EA, 0xB1, 0xA0, 0x6E, 0x2F, 0x27, 0xB2, 0x08,
                0x5D)
