#pragma once

#include "host_sdk/InterfaceSlots.h"

/// Support of the unspecified state, asked of an object (key: VT_I4 with the dispatch id) or of a dynamic
/// property (key: VT_UNKNOWN with the object).
struct IPropertyUnspecifiedSupport : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE IsUnspecified(VARIANT key, VARIANT_BOOL* unspecified) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetUnspecified(VARIANT key, VARIANT_BOOL unspecified) = 0;
    virtual HRESULT STDMETHODCALLTYPE IsUnspecifiedAllowed(VARIANT key, VARIANT_BOOL* allowed) = 0;
    /// The caller frees the text.
    virtual HRESULT STDMETHODCALLTYPE GetUnspecifiedText(VARIANT key, BSTR* text) = 0;
};

__CRT_UUID_DECL(IPropertyUnspecifiedSupport, 0x63ECCF04, 0x51B1, 0x4FE1, 0x97, 0x2C, 0x9E, 0xFD, 0x42, 0x0A,
                0xDE, 0xF4)
