#include "refhost/rx/DynamicLinker.h"

#include "framework/base/MessageBox.h"
#include "host_sdk/KvRxClass.h"
#include "refhost/rx/ModuleList.h"
#include "refhost/testing/ServiceCall.h"

namespace kvhost {

namespace {

// The folder differs from machine to machine, which would make traces incomparable.
std::wstring FileNameOf(const std::wstring& path) {
    return path.substr(path.find_last_of(L"\\/") + 1);
}

// Marks the module of the packet; false when there is none.
bool Mark(void* packet, bool LoadedModule::*mark) {
    LoadedModule* const module = ModuleList::Instance().FindByPacket(packet);
    if (module != nullptr) {
        module->*mark = true;
    }
    return module != nullptr;
}

}  // namespace

DynamicLinker& DynamicLinker::Instance() {
    static DynamicLinker linker;
    return linker;
}

KvRxClass* DynamicLinker::isA() const {
    static KvRxClass s_class(L"DynamicLinker", KvRxDynamicLinker::desc());
    return &s_class;
}

bool DynamicLinker::unlockApplication(void* packet) {
    ServiceCall call(L"unlockApplication");
    return call.Returns(!call.Fails() && Mark(packet, &LoadedModule::unlocked));
}

bool DynamicLinker::registerAppMDIAware(void* packet) {
    ServiceCall call(L"registerAppMDIAware");
    return call.Returns(!call.Fails() && Mark(packet, &LoadedModule::mdiAware));
}

}  // namespace kvhost

bool kvrxLoadModule(const wchar_t* path, bool printErrors, bool asCommand) {
    const std::wstring given = path != nullptr ? path : L"";
    kvhost::ServiceCall call(L"kvrxLoadModule", kvhost::FileNameOf(given), printErrors, asCommand);
    std::wstring error;
    if (!call.Fails() && kvhost::ModuleList::Instance().Load(given, error)) {
        return call.Returns(true);
    }
    if (printErrors && !error.empty()) {
        fw::ShowMessageBox(nullptr, error.c_str(), nullptr, MB_OK | MB_ICONWARNING);
    }
    return call.Returns(false);
}
