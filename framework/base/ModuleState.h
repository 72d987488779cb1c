#pragma once

#include "framework/base/Export.h"
#include "framework/base/WindowsApi.h"

extern "C" IMAGE_DOS_HEADER __ImageBase;

namespace fw {

// The module that this call was compiled into. As a default argument it names the caller's module.
inline HINSTANCE ThisModule() {
    return reinterpret_cast<HINSTANCE>(&__ImageBase);
}

// What the modules of a process share. It lives in the framework library, so that all see the same.
struct ModuleState {
    // Where strings, dialogs and pictures are loaded from. Null means the program itself.
    HINSTANCE m_hCurrentResourceHandle = nullptr;
    // The language of the texts that are loaded. 0 is the user's.
    LANGID m_textLanguage = 0;
};

}  // namespace fw

FW_API fw::ModuleState* AfxGetModuleState();

// The current resource handle; the program's own handle while none was set.
FW_API HINSTANCE AfxGetResourceHandle();
FW_API void AfxSetResourceHandle(HINSTANCE resources);
