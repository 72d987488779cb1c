#pragma once

#include "framework/com/CComModule.h"

/// The module as component server. Its first lock makes it a plug-in of the host, which otherwise would not
/// know a module that a client loaded by a class id.
class CQmxComModule : public CComModule {
public:
    // CComModule
    LONG Lock() noexcept override;

private:
    void LoadIntoHost() noexcept;

    bool m_hostLoaded = false;
};

/// The one module object.
[[nodiscard]] CQmxComModule& KvPeModule();
