#pragma once

#include <string>
#include <vector>

#include "framework/base/WindowsApi.h"

namespace kvhost {

/// The result of IPerPropertyBrowsing::GetPredefinedStrings: the texts, with their indexes as cookies. The
/// caller frees texts and arrays with CoTaskMemFree. Nothing is left allocated on failure.
[[nodiscard]] HRESULT MakeCountedArrays(const std::vector<std::wstring>& texts, CALPOLESTR* strings,
                                        CADWORD* cookies);

}  // namespace kvhost
