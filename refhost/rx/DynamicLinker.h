#pragma once

#include "host_sdk/KvRxDynamicLinker.h"

namespace kvhost {

/// The host's linker, one of a process.
class DynamicLinker final : public KvRxDynamicLinker {
public:
    [[nodiscard]] static DynamicLinker& Instance();

    // KvRxObject
    [[nodiscard]] KvRxClass* isA() const override;

    // KvRxDynamicLinker. False for a packet of no loaded module.
    bool unlockApplication(void* packet) override;
    bool registerAppMDIAware(void* packet) override;
};

}  // namespace kvhost
