#include "tests/control/support/RegisterProgram.h"

#include "framework/base/Handles.h"
#include "framework/com/Registration.h"

namespace kvtest {
namespace {

constexpr DWORD c_timeLimitMs = 60000;

using ProcessHandle = fw::UniqueHandle<fw::PlainPolicy<HANDLE, ::CloseHandle>>;

}  // namespace

DWORD RunProgram(std::wstring commandLine) {
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    if (!::CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, TRUE, CREATE_NO_WINDOW, nullptr,
                          nullptr, &startup, &process)) {
        return MAXDWORD;
    }
    const ProcessHandle running(process.hProcess);
    const ProcessHandle thread(process.hThread);
    if (::WaitForSingleObject(running.Get(), c_timeLimitMs) != WAIT_OBJECT_0) {
        ::TerminateProcess(running.Get(), MAXDWORD);
        return MAXDWORD;
    }
    DWORD exitCode = MAXDWORD;
    ::GetExitCodeProcess(running.Get(), &exitCode);
    return exitCode;
}

std::wstring RegisterProgramPath() {
    const std::wstring program = fw::ModulePath(nullptr);
    return program.substr(0, program.find_last_of(L'\\') + 1) + L"kvpexctl-register.exe";
}

DWORD RunRegister(const std::wstring& arguments) {
    return RunProgram(L"\"" + RegisterProgramPath() + L"\"" + arguments);
}

}  // namespace kvtest
