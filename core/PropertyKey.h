#pragma once

#include "framework/com/Variant.h"

// The keys by which the host's extra interfaces know a property: its dispatch id, asked of the object, or the
// object, asked of its dynamic property.

[[nodiscard]] inline fw::Variant PropertyKey(long dispid) {
    return fw::Variant::FromLong(dispid);
}

/// The object is held as long as the key.
[[nodiscard]] inline fw::Variant PropertyKey(IUnknown* object) {
    return fw::Variant::FromUnknown(object);
}
