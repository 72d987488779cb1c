#pragma once

#include "framework/base/Export.h"
#include "framework/base/WindowsApi.h"

namespace fw {

using MessageBoxHook = int (*)(HWND owner, const wchar_t* text, const wchar_t* caption, UINT flags);

// Puts an answerer in the place of the system's message box and returns the one that was there.
// Null brings the system's box back. Serves hosts that script their dialogs, and tests.
FW_API MessageBoxHook SetMessageBoxHook(MessageBoxHook hook);

// Every message box of ours is shown by this. Returns the id of the pressed button.
FW_API int ShowMessageBox(HWND owner, const wchar_t* text, const wchar_t* caption, UINT flags);

}  // namespace fw

// A message box over the active window, with the program's name as its caption.
FW_API int AfxMessageBox(const wchar_t* text, UINT flags = MB_OK);
