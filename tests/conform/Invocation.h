#pragma once

#include <vector>

#include "KvPEXCtl_h.h"

namespace kvconform {

/// Calls by id, as a script does. The arguments stand last first, and stay the caller's. A failure of the
/// operation itself, which comes in the exception record, is returned as if it had been called directly.
HRESULT Invoke(IDispatch& control, DISPID id, WORD flags, std::vector<VARIANT> arguments,
               VARIANT* result = nullptr);

}  // namespace kvconform
