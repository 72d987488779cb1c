#pragma once

#include <string>
#include <vector>

#include "host_sdk/Export.h"

namespace kvhost {

/// The plug-in modules that the host has loaded.
class KVHOST_API Modules {
public:
    Modules() = delete;

    struct Description {
        std::wstring path;
        bool unlocked = false;  ///< may be unloaded when no longer needed
        bool mdiAware = false;  ///< may be used with any open document
    };

    /// In the order of loading.
    [[nodiscard]] static std::vector<Description> Loaded();

    /// Sends each module the unload message and lets go of its library, last loaded first: the end of the
    /// host.
    static void UnloadAll();
};

}  // namespace kvhost
