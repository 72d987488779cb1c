#pragma once

#include <functional>

#include "framework/base/WindowsApi.h"

namespace kvpalette {

/// Runs until the main window is closed; gives the exit code of the quit message.
int RunMessageLoop();

/// Dispatches what waits in the thread's queue, painting included, and comes back when it is empty.
void PumpMessages();

/// Dispatches messages until the condition holds; false when the time is over first.
bool PumpUntil(const std::function<bool()>& condition, DWORD milliseconds);

}  // namespace kvpalette
