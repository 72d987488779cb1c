#pragma once

#include "host_sdk/Export.h"
#include "host_sdk/ResultBuffer.h"

// System variables. Names compare without regard to case. KVED_RTNORM, or KVED_RTERROR for an unknown or
// read-only variable and for a value of a wrong type or range.

/// Reads into `result`; a string value belongs to the caller, who frees it with delete[].
KVHOST_API int kvedGetVar(const wchar_t* name, resbuf* result);
KVHOST_API int kvedSetVar(const wchar_t* name, const resbuf* value);
