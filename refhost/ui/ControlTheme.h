#pragma once

#include "host_sdk/Export.h"

namespace kvhost {

/// The look of the host's controls: that of the desktop, or one of the two whatever the desktop has.
enum class ControlTheme { AsDesktop, Classic, Vista };

/// Holds for the process until the next call; AsDesktop at start.
KVHOST_API void SetControlTheme(ControlTheme theme);
[[nodiscard]] KVHOST_API bool IsVistaControlTheme();

}  // namespace kvhost
