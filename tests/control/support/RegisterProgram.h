#pragma once

#include <string>

#include "framework/base/WindowsApi.h"

namespace kvtest {

/// Runs a program to its end, its output with that of the test, and gives its exit code; MAXDWORD when it
/// cannot be started or does not end within a minute.
[[nodiscard]] DWORD RunProgram(std::wstring commandLine);

/// The register program beside the running one, whether it is there or not.
[[nodiscard]] std::wstring RegisterProgramPath();

/// Runs it, with the arguments behind a blank: it writes to the classes of the current user.
[[nodiscard]] DWORD RunRegister(const std::wstring& arguments);

}  // namespace kvtest
