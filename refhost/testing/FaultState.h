#pragma once

#include <string_view>

namespace kvhost {

/// Counts one call for the fault switches; true when it is told to fail.
[[nodiscard]] bool CountCallForFaults(std::wstring_view name);

}  // namespace kvhost
