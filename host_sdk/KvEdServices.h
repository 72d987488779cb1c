#pragma once

#include "framework/base/WindowsApi.h"
#include "host_sdk/Export.h"
#include "host_sdk/KvDbObjectId.h"

struct IUnknown;

// State and services of the host's editor.

/// A drag of objects runs in the drawing.
[[nodiscard]] KVHOST_API bool kvedIsDragging();

/// Class of commands that write properties with the palette's help.
inline constexpr unsigned KVED_COMMAND_WRITES_PROPERTIES = 0x8000000;
/// A command of one of the classes in `mask` runs.
[[nodiscard]] KVHOST_API bool kvedIsInCommandStack(unsigned mask);

/// A live preview is up, and whether it records what is being changed now.
[[nodiscard]] KVHOST_API bool kvedIsLivePreviewStarted();
[[nodiscard]] KVHOST_API bool kvedIsLivePreviewRecording();

/// Ids of the palettes in which rows preview.
inline constexpr int KVED_FIRST_PALETTE = 0;
inline constexpr int KVED_SECOND_PALETTE = 1;
/// Window of a palette; null while it is not open. The host's.
[[nodiscard]] KVHOST_API HWND kvedGetPaletteWnd(int palette);

/// The viewport in which the drawing is worked on; null in the drawing's model without one.
[[nodiscard]] KVHOST_API KvDbObjectId kvedGetCurViewportObjectId();
/// Background colour by which lists mark what looks otherwise in the current viewport.
[[nodiscard]] KVHOST_API COLORREF kvedGetVpOvrBackgColorValue();

/// Bracket an operation that comes from a modeless window. Brackets of one mark nest.
KVHOST_API void kvedSendModelessOperationStart(const wchar_t* mark);
KVHOST_API void kvedSendModelessOperationEnded(const wchar_t* mark);

/// Bracket a stretch that a user break must not cut. Calls count.
KVHOST_API void kvedDisableUsrbrk();
KVHOST_API void kvedEnableUsrbrk();

/// Shows the command prompt again.
KVHOST_API void kvedPostCommandPrompt();

/// The application's automation object, with a reference for the caller; null when the host has none.
KVHOST_API IUnknown* kvedGetApplicationObject();
