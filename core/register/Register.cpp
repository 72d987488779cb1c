// kvpexctl-register [/u]: registers the module beside this program for the current user, or takes everything
// that was registered out again.

#include <array>
#include <cstdio>
#include <string>
#include <string_view>

#include "KvPEXCtl_h.h"
#include "framework/com/Registration.h"

namespace {

// Registration names the classes; creating them is the module's own business.
#define KVPE_CLASS(coclassName, version, classId, className, state, description, further)                 \
    fw::ObjectMapEntry{                                                                                   \
        &CLSID_##coclassName,  nullptr, L"KvPEXCtl." #coclassName "." #version, nullptr, L"" description, \
        fw::ControlMiscStatus, nullptr},

const std::array s_classes{
#include "core/ClassList.inc"
};

#undef KVPE_CLASS

std::wstring PathOfModule() {
    const std::wstring program = fw::ModulePath(nullptr);
    return program.substr(0, program.find_last_of(L'\\') + 1) + L"KvPEXCtl.qmx";
}

int Report(HRESULT result, const char* work) {
    if (SUCCEEDED(result)) {
        std::printf("%s: done.\n", work);
        return 0;
    }
    std::fprintf(stderr, "%s: failed with 0x%08lX.\n", work, static_cast<unsigned long>(result));
    return 1;
}

}  // namespace

int wmain(int argumentCount, wchar_t** arguments) {
    const fw::ModuleRegistration registration{PathOfModule(), s_classes};
    if (argumentCount == 1) {
        return Report(fw::RegisterModule(registration), "Registering KvPEXCtl");
    }
    if (argumentCount == 2 && std::wstring_view(arguments[1]) == L"/u") {
        return Report(fw::UnregisterModule(registration), "Unregistering KvPEXCtl");
    }
    std::fputs("usage: kvpexctl-register [/u]\n", stderr);
    return 2;
}
