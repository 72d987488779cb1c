#pragma once

#include "host_sdk/InterfaceSlots.h"

/// The palette's record of the row: it is told the value that the row has now.
struct IKvPiPropertyIdentifier : IUnknown {
    KV_RESERVED_SLOT(3)
    KV_RESERVED_SLOT(4)
    KV_RESERVED_SLOT(5)
    KV_RESERVED_SLOT(6)
    KV_RESERVED_SLOT(7)
    KV_RESERVED_SLOT(8)
    KV_RESERVED_SLOT(9)
    KV_RESERVED_SLOT(10)
    KV_RESERVED_SLOT(11)
    KV_RESERVED_SLOT(12)
    KV_RESERVED_SLOT(13)
    virtual HRESULT STDMETHODCALLTYPE PutCurrentValue(VARIANT value) = 0;
    KV_RESERVED_SLOT(15)
    KV_RESERVED_SLOT(16)
    KV_RESERVED_SLOT(17)
    virtual HRESULT STDMETHODCALLTYPE PutCurrentValueText(BSTR text) = 0;
};

__CRT_UUID_DECL(IKvPiPropertyIdentifier, 0xB3A0F6D2, 0x64C1, 0x4E0B, 0x9C, 0x5E, 0x2F, 0x7A, 0x7D, 0x3C, 0x9E,
                0x14)
