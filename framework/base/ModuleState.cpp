#include "framework/base/ModuleState.h"

fw::ModuleState* AfxGetModuleState() {
    static fw::ModuleState s_state;
    return &s_state;
}

HINSTANCE AfxGetResourceHandle() {
    const HINSTANCE resources = AfxGetModuleState()->m_hCurrentResourceHandle;
    return resources ? resources : ::GetModuleHandleW(nullptr);
}

void AfxSetResourceHandle(HINSTANCE resources) {
    AfxGetModuleState()->m_hCurrentResourceHandle = resources;
}
