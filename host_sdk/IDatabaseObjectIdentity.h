#pragma once

#include "host_sdk/InterfaceSlots.h"
#include "host_sdk/KvDbObjectId.h"

/// Identity of an automation object that stands for a database object.
struct IDatabaseObjectIdentity : IUnknown {
    KV_RESERVED_SLOT(3)
    virtual HRESULT STDMETHODCALLTYPE GetObjectId(KvDbObjectId* id) = 0;
    KV_RESERVED_SLOT(5)
    virtual HRESULT STDMETHODCALLTYPE GetClassId(CLSID* classId) = 0;
};

__CRT_UUID_DECL(IDatabaseObjectIdentity, 0x5F3C54C0, 0x49E1, 0x11CF, 0x93, 0xD5, 0x08, 0x00, 0x09, 0x9E, 0xB3,
                0xB7)

/// The name by which list rows know the interface.
using IKvBaseObject = IDatabaseObjectIdentity;
