#pragma once

#include <span>

#include "framework/com/CComModule.h"

/// The rows of core/ClassList.inc as the component framework wants them.
[[nodiscard]] std::span<const fw::ObjectMapEntry> KvPeObjectMap();
