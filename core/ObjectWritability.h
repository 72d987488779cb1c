#pragma once

#include "framework/base/WindowsApi.h"

/// 0 when the object may not be written: it lies on a locked layer, or outside the working set or the array
/// that is edited in place. Every other value lets a write go on, also E_FAIL for what is no entity: only
/// entities are locked.
[[nodiscard]] long IsObjectWritable(IDispatch* object);

/// True while the host drags and one of the objects is a database object.
[[nodiscard]] bool IsSelectionBlockedByDrag(IDispatch** objects, int count);
