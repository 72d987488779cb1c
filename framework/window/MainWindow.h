#pragma once

#include "framework/base/Export.h"
#include "framework/base/WindowsApi.h"

class CWnd;

namespace fw {

// Tells the framework the main window of the calling thread. Null when it is gone.
FW_API void SetMainWindow(HWND window);

}  // namespace fw

// The main window of the calling thread, null if none was told or it is gone. The framework owns the object.
FW_API CWnd* AfxGetMainWnd();
