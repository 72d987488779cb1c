#include "tests/support/CrashReport.h"

#include "framework/base/WindowsApi.h"

#include <cstdio>

namespace kvtest {
namespace {

constexpr UINT kCrashExitCode = 99;
constexpr int kMaxFrames = 48;

void PrintAddress(DWORD64 address) {
    HMODULE module = nullptr;
    char path[MAX_PATH] = "?";
    const DWORD flags = GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    if (GetModuleHandleExW(flags, reinterpret_cast<LPCWSTR>(address), &module)) {
        GetModuleFileNameA(module, path, MAX_PATH);
    }
    std::fprintf(stderr, "  %s+0x%llx\n", path, address - reinterpret_cast<DWORD64>(module));
}

void PrintStack(CONTEXT context) {
    for (int frame = 0; frame < kMaxFrames && context.Rip != 0; ++frame) {
        PrintAddress(context.Rip);
        DWORD64 base = 0;
        PRUNTIME_FUNCTION function = RtlLookupFunctionEntry(context.Rip, &base, nullptr);
        if (function == nullptr) {
            // A leaf function has no unwind data: its return address is on top of the stack.
            context.Rip = *reinterpret_cast<DWORD64*>(context.Rsp);
            context.Rsp += sizeof(DWORD64);
            continue;
        }
        void* handlerData = nullptr;
        DWORD64 establisher = 0;
        RtlVirtualUnwind(UNW_FLAG_NHANDLER, base, context.Rip, function, &context, &handlerData, &establisher,
                         nullptr);
    }
}

LONG WINAPI ReportAndEnd(EXCEPTION_POINTERS* fault) {
    // A second fault, while the report is written, must not start over.
    static LONG entered = 0;
    if (InterlockedExchange(&entered, 1) == 0) {
        std::fflush(stdout);
        std::fprintf(stderr, "crash: code 0x%08lx at %p\n", fault->ExceptionRecord->ExceptionCode,
                     fault->ExceptionRecord->ExceptionAddress);
        PrintStack(*fault->ContextRecord);
        std::fflush(stderr);
    }
    TerminateProcess(GetCurrentProcess(), kCrashExitCode);
    return EXCEPTION_EXECUTE_HANDLER;
}

}  // namespace

void InstallCrashReport() {
    SetUnhandledExceptionFilter(ReportAndEnd);
}

}  // namespace kvtest
