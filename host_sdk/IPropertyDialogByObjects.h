#pragma once

#include "host_sdk/InterfaceSlots.h"

/// A property dialog that is given the selected objects.
struct IPropertyDialogByObjects : IUnknown {
    /// `text` is the row's text in and the result out; `objects` is an array of VT_UNKNOWN. S_OK when the
    /// user confirmed.
    virtual HRESULT STDMETHODCALLTYPE ShowDialog(BSTR* text, VARIANT objects) = 0;
};

__CRT_UUID_DECL(IPropertyDialogByObjects, 0x9F82F13D, 0xC850, 0x444A, 0x98, 0x0C, 0xB5, 0xED, 0xC6, 0x67,
                0x9F, 0x4A)
