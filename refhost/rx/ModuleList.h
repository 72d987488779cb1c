#pragma once

#include <memory>
#include <string>
#include <vector>

#include "framework/base/Handles.h"

namespace kvhost {

/// One plug-in module. Its address is the packet that the module gets with each message.
struct LoadedModule {
    std::wstring path;
    fw::UniqueModule library;
    bool unlocked = false;
    bool mdiAware = false;
};

/// The loaded modules, in the order of loading.
class ModuleList {
public:
    [[nodiscard]] static ModuleList& Instance();

    /// Loads the module and sends it the init message; true also for one that is loaded. Reasons of a failure
    /// are in `error`, for the user.
    [[nodiscard]] bool Load(const std::wstring& path, std::wstring& error);
    void UnloadAll();

    /// Null when the packet is none of a loaded module's.
    [[nodiscard]] LoadedModule* FindByPacket(const void* packet);
    [[nodiscard]] const std::vector<std::unique_ptr<LoadedModule>>& Modules() const { return m_modules; }

private:
    [[nodiscard]] bool Contains(HMODULE library) const;

    std::vector<std::unique_ptr<LoadedModule>> m_modules;
};

}  // namespace kvhost
