#include "refhost/rx/ModuleList.h"

#include <algorithm>

#include "host_sdk/KvRxDynamicLinker.h"
#include "refhost/rx/Modules.h"

namespace kvhost {

namespace {

using EntryPoint = unsigned (*)(unsigned message, void* packet);
using ApiVersion = unsigned (*)(unsigned reserved);

template <class Function>
Function FunctionNamed(HMODULE library, const char* name) {
    return reinterpret_cast<Function>(reinterpret_cast<void*>(::GetProcAddress(library, name)));
}

// The upper half is the major version, which must agree.
bool IsSupportedVersion(unsigned version) {
    return version >> 16 == KVRX_API_VERSION >> 16;
}

void SendToModule(LoadedModule& module, KvRxAppMessage message) {
    if (const auto entry = FunctionNamed<EntryPoint>(module.library.Get(), "kvrxEntryPoint")) {
        entry(message, &module);
    }
}

std::wstring WhyNotAModule(HMODULE library) {
    const auto version = FunctionNamed<ApiVersion>(library, "kvrxGetApiVersion");
    if (version == nullptr || FunctionNamed<EntryPoint>(library, "kvrxEntryPoint") == nullptr) {
        return L"is no plug-in module";
    }
    return IsSupportedVersion(version(0)) ? L"" : L"was made for another version of the host";
}

}  // namespace

ModuleList& ModuleList::Instance() {
    static ModuleList list;
    return list;
}

bool ModuleList::Contains(HMODULE library) const {
    return std::any_of(m_modules.begin(), m_modules.end(),
                       [&](const auto& module) { return module->library.Get() == library; });
}

bool ModuleList::Load(const std::wstring& path, std::wstring& error) {
    auto module = std::make_unique<LoadedModule>();
    module->path = path;
    // The module's own folder holds what it needs beside the system's libraries.
    module->library.Reset(::LoadLibraryExW(path.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH));
    if (!module->library) {
        error = path + L" can't be loaded.";
        return false;
    }
    if (Contains(module->library.Get())) {
        return true;
    }
    const std::wstring complaint = WhyNotAModule(module->library.Get());
    if (!complaint.empty()) {
        error = path + L' ' + complaint + L'.';
        return false;
    }
    // Listed before its init message, in which it may ask for itself.
    LoadedModule& listed = *m_modules.emplace_back(std::move(module));
    SendToModule(listed, KVRX_MSG_INIT);
    return true;
}

void ModuleList::UnloadAll() {
    while (!m_modules.empty()) {
        SendToModule(*m_modules.back(), KVRX_MSG_UNLOAD);
        m_modules.pop_back();
    }
}

LoadedModule* ModuleList::FindByPacket(const void* packet) {
    const auto found = std::find_if(m_modules.begin(), m_modules.end(),
                                    [&](const auto& module) { return module.get() == packet; });
    return found == m_modules.end() ? nullptr : found->get();
}

std::vector<Modules::Description> Modules::Loaded() {
    std::vector<Description> descriptions;
    for (const auto& module : ModuleList::Instance().Modules()) {
        descriptions.push_back({module->path, module->unlocked, module->mdiAware});
    }
    return descriptions;
}

void Modules::UnloadAll() {
    ModuleList::Instance().UnloadAll();
}

}  // namespace kvhost
