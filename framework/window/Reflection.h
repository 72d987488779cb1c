#pragma once

#include "framework/base/Export.h"
#include "framework/base/WindowsApi.h"

namespace fw {

// Hands a message that a control sent to its parent back to the control's object: owner-draw duties,
// commands, notifications, colours, scrolling. True, with the answer in result, if the control has done it.
// CWnd does this by itself for what its tables leave; parents of other kinds call it before their default.
FW_API bool ReflectMessage(HWND parent, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);

}  // namespace fw
