#pragma once

#include <string>
#include <string_view>

namespace kvhost {

/// The control that the session wants for a row instead of the one of its property: what the system variable
/// ROWCONTROLS, "Row=Control;Row=Control", tells for the row's name. Empty when it tells nothing. A control
/// is a coclass name of the module or the registered name of somebody else's class.
[[nodiscard]] std::wstring WantedControlOf(std::wstring_view row);

}  // namespace kvhost
