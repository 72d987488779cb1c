#pragma once

#include "framework/base/WindowsApi.h"

// A slot of a host interface that modules of this kind do not call. It keeps the later operations at their
// places.
#define KV_RESERVED_SLOT(number)                               \
    virtual HRESULT STDMETHODCALLTYPE ReservedSlot##number() { \
        return E_NOTIMPL;                                      \
    }

#define KV_RESERVED_SLOTS_10(tens) \
    KV_RESERVED_SLOT(tens##0)      \
    KV_RESERVED_SLOT(tens##1)      \
    KV_RESERVED_SLOT(tens##2)      \
    KV_RESERVED_SLOT(tens##3)      \
    KV_RESERVED_SLOT(tens##4)      \
    KV_RESERVED_SLOT(tens##5)      \
    KV_RESERVED_SLOT(tens##6)      \
    KV_RESERVED_SLOT(tens##7)      \
    KV_RESERVED_SLOT(tens##8)      \
    KV_RESERVED_SLOT(tens##9)
