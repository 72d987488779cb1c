#pragma once

#include "host_sdk/InterfaceSlots.h"

/// What an object says of its properties by dispatch id. An implementation may throw Tolm::ErrorStatus.
struct IPropertyEditability : IUnknown {
    KV_RESERVED_SLOT(3)
    virtual HRESULT STDMETHODCALLTYPE Editable(long dispid, BOOL* editable) = 0;
    virtual HRESULT STDMETHODCALLTYPE PropertyShown(long dispid, BOOL* shown) = 0;
};

__CRT_UUID_DECL(IPropertyEditability, 0x1236EAA4, 0x7715, 0x11D1, 0xA2, 0xDA, 0x00, 0x60, 0xB0, 0x6B, 0x2D,
                0x46)

/// The name by which link rows know the interface.
using IKvPiPropertyFlags = IPropertyEditability;
