#pragma once

#include <string>
#include <vector>

#include "framework/base/WindowsApi.h"

namespace kvhost {

/// The result of IPerPropertyBrowsing::GetPredefinedStrings: the texts, with their indexes as cookies. The
/// texts are BSTRs, which the caller frees with SysFreeString as rows of this host do; the arrays are freed
/// with CoTaskMemFree. Nothing is left allocated on failure.
[[nodiscard]] HRESULT MakeCountedArrays(const std::vector<std::wstring>& texts, CALPOLESTR* strings,
                                        CADWORD* cookies);

}  // namespace kvhost
