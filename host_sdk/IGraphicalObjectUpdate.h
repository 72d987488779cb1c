#pragma once

#include "host_sdk/InterfaceSlots.h"

/// Redraws an object after a change of its properties; on hatches it also gives access to the pattern.
struct IGraphicalObjectUpdate : IUnknown {
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
    KV_RESERVED_SLOTS_10(4)
    KV_RESERVED_SLOTS_10(5)
    KV_RESERVED_SLOT(60)
    KV_RESERVED_SLOT(61)
    virtual HRESULT STDMETHODCALLTYPE GetPatternType(long* type) = 0;
    /// The caller frees the name.
    virtual HRESULT STDMETHODCALLTYPE GetPatternName(BSTR* name) = 0;
    KV_RESERVED_SLOT(64)
    KV_RESERVED_SLOT(65)
    KV_RESERVED_SLOT(66)
    KV_RESERVED_SLOT(67)
    KV_RESERVED_SLOT(68)
    KV_RESERVED_SLOT(69)
    KV_RESERVED_SLOTS_10(7)
    virtual HRESULT STDMETHODCALLTYPE SetPattern(long type, BSTR name) = 0;
    KV_RESERVED_SLOT(81)
    KV_RESERVED_SLOT(82)
    KV_RESERVED_SLOT(83)
    KV_RESERVED_SLOT(84)
    /// Brings what is shown in line with the properties.
    virtual HRESULT STDMETHODCALLTYPE Update() = 0;
};

__CRT_UUID_DECL(IGraphicalObjectUpdate, 0x2122AAFA, 0xE832, 0x4CFC, 0xB5, 0x0D, 0x02, 0xC8, 0x74, 0x86, 0xAE,
                0xB9)

/// The name by which hatch rows know the interface.
using IHatchPatternAccess = IGraphicalObjectUpdate;
