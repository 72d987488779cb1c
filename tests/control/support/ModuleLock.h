#pragma once

#include "framework/base/WindowsApi.h"

namespace kvtest {

/// What the loaded module answers to the question whether it can be unloaded; E_UNEXPECTED when it is not
/// loaded.
[[nodiscard]] HRESULT AskModuleCanUnload();

}  // namespace kvtest
