#pragma once

#include "core/Export.h"
#include "framework/com/ComPtr.h"

class CIPropEditUIEvents;

/// Keeps the shell alive, and with it the logic, while a window of the logic handles a message: an edit that
/// ends can lead the palette to let the row go. Null where the events go to something that is no component.
[[nodiscard]] KVPEX_API fw::ComPtr<IUnknown> HoldShell(CIPropEditUIEvents* events);
