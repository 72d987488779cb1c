#pragma once

#include "host_sdk/InterfaceSlots.h"
#include "host_sdk/KvArray.h"
#include "host_sdk/KvDbObjectId.h"

/// A property dialog that is given the selected objects' ids.
struct IPropertyDialogByIds : IUnknown {
    /// `text` is the row's text in and the result out. S_OK when the user confirmed.
    virtual HRESULT STDMETHODCALLTYPE ShowDialog(BSTR* text, KvArray<KvDbObjectId>* ids) = 0;
};

__CRT_UUID_DECL(IPropertyDialogByIds, 0x8B384029, 0xACB0, 0x11D1, 0xA2, 0xB4, 0x08, 0x00, 0x09, 0xDC, 0x63,
                0x9A)
