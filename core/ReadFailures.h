#pragma once

#include "core/ValueType.h"
#include "framework/base/WindowsApi.h"

/// True for the failure by which some objects say that they have no value of the property now.
[[nodiscard]] bool IsMissingValueFailure(HRESULT result, SCODE exceptionCode, IDispatch* object, long dispid);

/// True for a failed read that the row passes over, with the value left empty. `exceptionCode` is that of an
/// exception of the object. `type` becomes ValueType_Varies where the failure stands for a value that differs
/// inside the object.
[[nodiscard]] bool IsToleratedReadFailure(HRESULT result, SCODE exceptionCode, IDispatch* object, long dispid,
                                          ValueType& type);
