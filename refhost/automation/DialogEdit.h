#pragma once

#include <string>
#include <vector>

#include "framework/com/ComPtr.h"

namespace kvhost {

/// Shows the text to the user and gives each object the edited one, as one step of undo: what a property
/// dialog does. S_FALSE, changing nothing, when the user cancelled; E_FAIL when no object took the text.
/// Objects that refuse are told to the user.
[[nodiscard]] HRESULT EditInDialog(REFCLSID dialog, const std::vector<fw::ComPtr<IDispatch>>& objects,
                                   std::size_t objectCount, BSTR* text);

}  // namespace kvhost
