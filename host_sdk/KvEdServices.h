#pragma once

#include "host_sdk/Export.h"

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
