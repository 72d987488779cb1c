#pragma once

#include "host_sdk/InterfaceSlots.h"

/// Binding of a property to an expression; keys as in IPropertyUnspecifiedSupport.
struct IPropertyExpressionSupport : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE IsExpressionSupported(VARIANT key, VARIANT_BOOL* supported) = 0;
    /// The caller frees the text; empty when the property holds a plain value.
    virtual HRESULT STDMETHODCALLTYPE GetExpression(VARIANT key, BSTR* expression) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetExpression(VARIANT key, wchar_t* expression) = 0;
};

__CRT_UUID_DECL(IPropertyExpressionSupport, 0x214D0B04, 0xB4BF, 0x4D7C, 0xA2, 0xB8, 0x36, 0x4E, 0x94, 0x5E,
                0xF3, 0x11)
