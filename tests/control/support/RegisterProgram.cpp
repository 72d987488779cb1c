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

DWORD RunRegister(const wchar_t* arguments) {
    const std::wstring program = fw::ModulePath(nullptr);
    const std::wstring folder = program.substr(0, program.find_last_of(L'\\') + 1);
    return RunProgram(L"\"" + folder + L"kvpexctl-register.exe\"" + arguments);
}

}  // namespace kvtest
