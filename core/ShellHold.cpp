#include "core/ShellHold.h"

#include "core/CIPropEditUIEvents.h"
#include "framework/com/ComObjectRoot.h"

fw::ComPtr<IUnknown> HoldShell(CIPropEditUIEvents* events) {
    auto* const shell = dynamic_cast<fw::ComObjectRoot*>(events);
    return shell ? shell->GetUnknown() : nullptr;
}
