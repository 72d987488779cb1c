#pragma once

#include "framework/base/WindowsApi.h"

namespace kvhost {

/// By which a property dialog finds what it edits: dialogs are given objects, and know their own class only.
struct IPropertyOfDialog : IUnknown {
    /// DISPID_UNKNOWN when no property of the object has that dialog.
    virtual DISPID STDMETHODCALLTYPE PropertyOfDialog(REFCLSID dialog) = 0;
};

}  // namespace kvhost

__CRT_UUID_DECL(kvhost::IPropertyOfDialog, 0x1C5A2F21, 0x7D3B, 0x4E86, 0x9A, 0x41, 0x5E, 0x0C, 0x88, 0x21,
                0xB7, 0x10)
