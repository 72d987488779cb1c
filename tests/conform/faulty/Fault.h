#pragma once

#include "framework/base/WindowsApi.h"

#include <cwchar>

/// True when the run asks for this fault: the variable KV_CONFORM_FAULT names it, between commas where it
/// names several.
inline bool HasFault(const wchar_t* name) {
    wchar_t asked[512]{};
    ::GetEnvironmentVariableW(L"KV_CONFORM_FAULT", asked, 512);
    const std::size_t length = std::wcslen(name);
    for (const wchar_t* place = asked; (place = std::wcsstr(place, name)) != nullptr; ++place) {
        const bool begins = place == asked || place[-1] == L',';
        if (begins && (place[length] == L',' || place[length] == L'\0')) {
            return true;
        }
    }
    return false;
}
