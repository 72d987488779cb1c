#pragma once

#include "host_sdk/InterfaceSlots.h"

/// Opens the dialog and returns when it is closed.
using KvPropertyDialogProcedure = void (*)();

/// The dialog of a dynamic property: a function to call, or else a macro to run.
struct IDynamicPropertyDialog : IUnknown {
    /// A null procedure: ask for the macro.
    virtual HRESULT STDMETHODCALLTYPE GetDialogProcedure(KvPropertyDialogProcedure* procedure) = 0;
    /// The caller frees the text.
    virtual HRESULT STDMETHODCALLTYPE GetDialogMacro(BSTR* macro) = 0;
};

__CRT_UUID_DECL(IDynamicPropertyDialog, 0x8B384028, 0xACB2, 0x11D1, 0xA2, 0xB4, 0x08, 0x00, 0x09, 0xDC, 0x63,
                0x9A)
