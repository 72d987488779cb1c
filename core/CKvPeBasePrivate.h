#pragma once

#include "framework/base/WindowsApi.h"

/// What a control's logic may know of its shell; implemented by the shell.
class CKvPeBasePrivate {
public:
    /// Address of the shell's window handle; null while there is no window object.
    [[nodiscard]] virtual HWND* GetControlWindowPtr() = 0;
    /// The in-place site without a reference for the caller; null outside a container.
    [[nodiscard]] virtual IOleInPlaceSite* GetInPlaceSite() = 0;

protected:
    ~CKvPeBasePrivate() = default;
};
