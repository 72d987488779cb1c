// kvpexctl-register [/u] [MODULE]: registers a module with the classes of the class table for the current
// user, or takes everything that was registered out again. Without a path it is the module beside this
// program.

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

std::wstring PathBesideProgram() {
    const std::wstring program = fw::ModulePath(nullptr);
    return program.substr(0, program.find_last_of(L'\\') + 1) + L"KvPEXCtl.qmx";
}

// Empty when there is no such file: an attempt to register it would take out the registration that stands.
std::wstring PathOf(const wchar_t* module) {
    wchar_t path[1024]{};
    const DWORD length = ::GetFullPathNameW(module, 1024, path, nullptr);
    const bool isThere = length > 0 && length < 1024 && ::GetFileAttributesW(path) != INVALID_FILE_ATTRIBUTES;
    return isThere ? path : std::wstring();
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
    const bool isRemoval = argumentCount > 1 && std::wstring_view(arguments[1]) == L"/u";
    const int modulePlace = isRemoval ? 2 : 1;
    if (argumentCount > modulePlace + 1 ||
        (argumentCount > modulePlace && arguments[modulePlace][0] == L'/')) {
        std::fputs("usage: kvpexctl-register [/u] [MODULE]\n", stderr);
        return 2;
    }
    const std::wstring path =
        argumentCount > modulePlace ? PathOf(arguments[modulePlace]) : PathBesideProgram();
    if (path.empty()) {
        std::fputs("kvpexctl-register: there is no such module\n", stderr);
        return 1;
    }
    const fw::ModuleRegistration registration{path, s_classes};
    return isRemoval ? Report(fw::UnregisterModule(registration), "Unregistering KvPEXCtl")
                     : Report(fw::RegisterModule(registration), "Registering KvPEXCtl");
}
