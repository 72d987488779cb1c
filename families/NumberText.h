#pragma once

#include "core/Export.h"
#include "core/HostDocument.h"  // IsCurrentDocumentActive
#include "framework/base/CString.h"
#include "framework/base/WindowsApi.h"

#include "KvPEXCtl_h.h"

// Numbers of properties as text, in the units of the drawing that the user sees. While another document's
// database works its units would be wrong: there is no text then.

/// Text of a number under its own type: integers in decimal, reals as lengths. Empty for values of other
/// types. False, with an empty text, while the current document is not the active one.
KVPEX_API bool VariantToHostText(const VARIANT& value, CString& text);

/// Text of a VT_R8 by what it means; empty for the types that have no text form. False as above.
KVPEX_API bool NumberToTextByType(const VARIANT& value, CString& text, KvPeNumericType type);

/// Reads a number as a value of `type`, one of VT_I2, VT_I4, VT_I8, VT_INT, VT_R4 and VT_R8. False, and a
/// VT_ERROR in `value`, for any other type and a text that is none.
KVPEX_API bool TextToVariant(const CString& text, unsigned short type, VARIANT& value);
