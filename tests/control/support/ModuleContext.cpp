// Lets the whole test program create the module's classes by id: the manifest beside the program names them.
#include <gtest/gtest.h>

#include <string>

#include "framework/base/WindowsApi.h"
#include "tests/support/WarmUp.h"

namespace {

void ActivateModuleContext() {
    wchar_t path[1024]{};
    ::GetModuleFileNameW(nullptr, path, 1023);
    const std::wstring program = path;
    const std::wstring folder = program.substr(0, program.find_last_of(L'\\'));
    const std::wstring manifest = folder + L"\\KvPEXCtl.manifest";
    ACTCTXW description{};
    description.cbSize = sizeof description;
    description.dwFlags = ACTCTX_FLAG_ASSEMBLY_DIRECTORY_VALID;
    description.lpSource = manifest.c_str();
    description.lpAssemblyDirectory = folder.c_str();
    const HANDLE context = ::CreateActCtxW(&description);
    ASSERT_NE(context, INVALID_HANDLE_VALUE);
    ULONG_PTR cookie = 0;
    ASSERT_TRUE(::ActivateActCtx(context, &cookie));
}

const kvtest::WarmUpStep s_context(&ActivateModuleContext);

}  // namespace
