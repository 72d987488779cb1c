#pragma once

#include "host_sdk/InterfaceSlots.h"

/// The application's automation object.
struct IHostApplication : IUnknown {
    KV_RESERVED_SLOT(3)
    KV_RESERVED_SLOT(4)
    KV_RESERVED_SLOT(5)
    KV_RESERVED_SLOT(6)
    KV_RESERVED_SLOT(7)
    KV_RESERVED_SLOT(8)
    KV_RESERVED_SLOT(9)
    KV_RESERVED_SLOTS_10(1)
    KV_RESERVED_SLOTS_10(2)
    KV_RESERVED_SLOTS_10(3)
    KV_RESERVED_SLOT(40)
    KV_RESERVED_SLOT(41)
    KV_RESERVED_SLOT(42)
    KV_RESERVED_SLOT(43)
    virtual HRESULT STDMETHODCALLTYPE RunMacro(BSTR macro) = 0;
};

__CRT_UUID_DECL(IHostApplication, 0x070AA05D, 0xDFC1, 0x4E64, 0x83, 0x79, 0x43, 0x22, 0x69, 0xB4, 0x8B, 0x07)
