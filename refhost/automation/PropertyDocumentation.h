#pragma once

#include <string>

#include "host_sdk/Export.h"

namespace kvhost {

/// The page docs/object-properties.md, made from the property tables, in UTF-8.
[[nodiscard]] KVHOST_API std::string ObjectPropertiesPage();

}  // namespace kvhost
