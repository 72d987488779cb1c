#pragma once

#include "framework/base/Handles.h"

namespace kvpalette {

[[nodiscard]] fw::UniqueMenu MakeMainMenu();

/// The command of a key that goes down with the given modifiers; 0 for none.
[[nodiscard]] int CommandOfKey(WPARAM key, bool control, bool shift);

}  // namespace kvpalette
