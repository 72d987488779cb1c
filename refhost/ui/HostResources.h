#pragma once

#include "framework/base/ModuleState.h"

namespace kvhost {

/// For its scope, dialogs are made from the host library's own resources, whatever module asked for them.
class HostResources {
public:
    HostResources() : m_previous(AfxGetModuleState()->m_hCurrentResourceHandle) {
        AfxSetResourceHandle(fw::ThisModule());
    }
    HostResources(const HostResources&) = delete;
    HostResources& operator=(const HostResources&) = delete;
    ~HostResources() { AfxSetResourceHandle(m_previous); }

private:
    HINSTANCE m_previous;
};

}  // namespace kvhost
