#pragma once

#include "host_sdk/InterfaceSlots.h"

/// Element access to an array property of the object that is asked. A key names an element: its cookie plus
/// the offset of its group.
struct IPropertyElementAccess : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE GetElementValue(long dispid, unsigned key, VARIANT* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetElementValue(long dispid, unsigned key, VARIANT value) = 0;
    KV_RESERVED_SLOT(5)
    /// Numbers per group, as 2 or 3 per vertex.
    virtual HRESULT STDMETHODCALLTYPE GetGroupSize(long dispid, unsigned* size) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetGroupCount(long dispid, long* count) = 0;
};

__CRT_UUID_DECL(IPropertyElementAccess, 0x5D535710, 0xD49A, 0x11D1, 0xB6, 0x16, 0x00, 0x60, 0xB0, 0x87, 0xE2,
                0x35)

/// The name by which list rows know the interface.
using IPropertyElementAccessOld = IPropertyElementAccess;
