#pragma once

#include <functional>

#include "framework/base/WindowsApi.h"

namespace kvpalette {

/// Runs until the main window is closed; gives the exit code of the quit message.
int RunMessageLoop();

/// Dispatches what waits in the thread's queue, painting included, and comes back when it is empty.
void PumpMessages();

/// Makes the window the one that the user works in, and waits until it is; not for long, as the system may
/// refuse.
void BringToFront(HWND window);

/// Dispatches messages until the condition holds; false when the time is over first.
bool PumpUntil(const std::function<bool()>& condition, DWORD milliseconds);

}  // namespace kvpalette
