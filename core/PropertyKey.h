#pragma once

#include "framework/base/WindowsApi.h"

// The keys by which the host's extra interfaces know a property: its dispatch id, asked of the object, or the
// object, asked of its dynamic property.

[[nodiscard]] inline VARIANT PropertyKey(long dispid) {
    VARIANT key{};
    key.vt = VT_I4;
    key.lVal = dispid;
    return key;
}

/// The object is the caller's, who holds it as long as the key is used.
[[nodiscard]] inline VARIANT PropertyKey(IUnknown* object) {
    VARIANT key{};
    key.vt = VT_UNKNOWN;
    key.punkVal = object;
    return key;
}
