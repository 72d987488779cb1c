#pragma once

#include <string>

#include "framework/base/WindowsApi.h"

namespace kvtest {

/// Runs a program to its end, its output with that of the test, and gives its exit code; MAXDWORD when it
/// cannot be started or does not end within a minute.
[[nodiscard]] DWORD RunProgram(std::wstring commandLine);

/// Runs the register program beside the test program: it writes to the classes of the current user.
[[nodiscard]] DWORD RunRegister(const wchar_t* arguments);

}  // namespace kvtest
