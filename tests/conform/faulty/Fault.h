#pragma once

#include "framework/base/WindowsApi.h"

#include <cwchar>

/// True when the run asks for this fault: the variable KV_CONFORM_FAULT names it.
inline bool HasFault(const wchar_t* name) {
    wchar_t asked[64]{};
    return ::GetEnvironmentVariableW(L"KV_CONFORM_FAULT", asked, 64) > 0 && std::wcscmp(asked, name) == 0;
}
