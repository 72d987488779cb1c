#pragma once

#include "framework/base/WindowsApi.h"

/// Asks the object whether a property of it may be edited; false when it gives no answer.
[[nodiscard]] bool AskIsReadOnly(IDispatch* object, long dispid, bool& readOnly);
