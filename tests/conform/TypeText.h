#pragma once

#include <string>

#include "framework/base/WindowsApi.h"

namespace kvconform {

/// The parameters of an operation as "(in VARIANT*, out retval long*)", with " -> void" behind them when the
/// result is no HRESULT.
[[nodiscard]] std::wstring SignatureOf(ITypeInfo& info, const FUNCDESC& function);

}  // namespace kvconform
