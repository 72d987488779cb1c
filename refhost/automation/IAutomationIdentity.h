#pragma once

#include "framework/base/WindowsApi.h"
#include "host_sdk/KvDbObjectId.h"

namespace kvhost {

/// By which the host knows its own automation objects.
struct IAutomationIdentity : IUnknown {
    /// Null when the drawing has gone.
    virtual KvDbObjectId STDMETHODCALLTYPE DatabaseObject() = 0;
};

}  // namespace kvhost

__CRT_UUID_DECL(kvhost::IAutomationIdentity, 0x1C5A2F20, 0x7D3B, 0x4E86, 0x9A, 0x41, 0x5E, 0x0C, 0x88, 0x21,
                0xB7, 0x10)
