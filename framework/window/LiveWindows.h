// Inside the framework: the count of permanent windows by module and by thread.
#pragma once

#include "framework/base/WindowsApi.h"

namespace fw {

// To be called on the window's thread. The first window of a thread starts its message pre-translation and
// the last one ends it.
void AddLiveWindow(HINSTANCE module);
void RemoveLiveWindow(HINSTANCE module);

}  // namespace fw
