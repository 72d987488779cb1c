#pragma once

#include "framework/base/WindowsApi.h"

/// A bitmap of the satellite for the rows of lists. It is loaded once and lives as long as the module, since
/// many rows show it. Null when there is none.
[[nodiscard]] HBITMAP ListPicture(UINT id);
