#pragma once

#include "host_sdk/InterfaceSlots.h"
#include "host_sdk/KvDbFullSubentPath.h"

/// Identity of an automation object that stands for a part of a database object.
struct ITransientObjectIdentity : IUnknown {
    KV_RESERVED_SLOT(3)
    KV_RESERVED_SLOT(4)
    virtual HRESULT STDMETHODCALLTYPE GetFullSubentPath(KvDbFullSubentPath* path) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetClassId(CLSID* classId) = 0;
};

__CRT_UUID_DECL(ITransientObjectIdentity, 0xB374D885, 0xEECE, 0x4138, 0x8C, 0x82, 0x3F, 0xB2, 0x0C, 0x53,
                0x87, 0x88)
