#pragma once

#include "framework/base/WindowsApi.h"
#include "host_sdk/Export.h"

namespace kvhost {

/// For its scope, the property dialogs can be created by their class ids within this process
/// (see PropertyDialogIds.h).
class KVHOST_API PropertyDialogs {
public:
    PropertyDialogs();
    PropertyDialogs(const PropertyDialogs&) = delete;
    PropertyDialogs& operator=(const PropertyDialogs&) = delete;
    ~PropertyDialogs();

private:
    DWORD m_byObjects = 0;
    DWORD m_byIds = 0;
    DWORD m_prompts = 0;
};

}  // namespace kvhost
