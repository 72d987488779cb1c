#pragma once

#include <string_view>

#include "framework/base/Export.h"
#include "framework/base/WindowsApi.h"

namespace fw {

// A text of a module's string tables in the language of ModuleState: in just that one, in another of its
// kind, in English, or in any. It lives as long as the module; empty if there is no such id.
FW_API std::wstring_view FindText(HINSTANCE module, UINT id);

}  // namespace fw
