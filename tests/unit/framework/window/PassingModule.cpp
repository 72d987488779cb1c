// A module with a window class of its own, to be loaded and unloaded by a test.
#include "framework/window/CWnd.h"
#include "framework/window/WindowClass.h"

namespace {

CWnd* g_window = nullptr;

}  // namespace

extern "C" __declspec(dllexport) HWND PassingModuleOpen() {
    static const fw::WindowClass s_class{L"KvFramePassing", CS_SAVEBITS};
    g_window = new CWnd;
    return g_window->Create(s_class, L"passing", WS_POPUP, {0, 0, 20, 20}, nullptr) ? g_window->m_hWnd
                                                                                    : nullptr;
}

extern "C" __declspec(dllexport) void PassingModuleClose() {
    delete g_window;
    g_window = nullptr;
}

extern "C" __declspec(dllexport) HRESULT PassingModuleCanUnload() {
    return AfxDllCanUnloadNow();
}

BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID processEnds) {
    if (reason == DLL_PROCESS_DETACH && !processEnds) {
        fw::UnregisterWindowClasses(module);
    }
    return TRUE;
}
