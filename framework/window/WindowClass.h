#pragma once

#include "framework/base/Export.h"
#include "framework/base/ModuleState.h"
#include "framework/base/WindowsApi.h"

namespace fw {

inline constexpr WORD ArrowCursor = 32512;
inline constexpr WORD TextCursor = 32513;
inline constexpr WORD NoCursor = 0;

// What a window class of ours is made of. It belongs to the module that describes it, is registered with the
// first window, and must be unregistered when the module leaves: the system keeps classes of modules that are
// gone.
struct WindowClass {
    const wchar_t* name;
    UINT style = 0;               // CS_ values
    WORD cursor = ArrowCursor;    // id of a system cursor
    HBRUSH background = nullptr;  // null: the window paints its own; a COLOR_ value + 1 is allowed
    HINSTANCE module = nullptr;   // null: the module that this description was compiled into
    const IMAGE_DOS_HEADER* compiledInto = &__ImageBase;

    HINSTANCE Module() const {
        return module ? module : reinterpret_cast<HINSTANCE>(const_cast<IMAGE_DOS_HEADER*>(compiledInto));
    }
};

// Registers the class if its module has not done so yet. False if the system refuses.
FW_API bool RegisterWindowClass(const WindowClass& windowClass);

// To be called when a module is detached, after its last window.
FW_API void UnregisterWindowClasses(HINSTANCE module);

// The number of living framework windows that the module has created or subclassed.
FW_API int CountWindowsOfModule(HINSTANCE module);

}  // namespace fw

// S_FALSE while a framework window of the calling module lives: its code is still needed.
inline HRESULT AfxDllCanUnloadNow() {
    return fw::CountWindowsOfModule(fw::ThisModule()) == 0 ? S_OK : S_FALSE;
}
