#pragma once

#include "host_sdk/KvRxDictionary.h"

namespace kvhost {

/// The table of system services, which holds the dynamic linker.
class SystemRegistry final : public KvRxDictionary {
public:
    [[nodiscard]] static SystemRegistry& Instance();

    // KvRxObject
    [[nodiscard]] KvRxClass* isA() const override;

    // KvRxDictionary
    [[nodiscard]] KvRxObject* at(const wchar_t* name) const override;
};

}  // namespace kvhost
