// Inside the framework: lets windows see posted messages before they are dispatched. A hook of the thread is
// used, not the message loop: our windows live under loops of foreign containers, of dialogs and of message
// boxes.
#pragma once

#include "framework/base/Export.h"

namespace fw {

void StartPreTranslation();
void EndPreTranslation();

// True while the calling thread's hook is in place.
FW_API bool IsPreTranslationActiveForTesting();

}  // namespace fw
