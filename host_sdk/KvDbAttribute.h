#pragma once

#include "host_sdk/KvDbEntity.h"

/// Text that belongs to one block reference, its owner.
class KVHOST_API KvDbAttribute : public KvDbEntity {
public:
    [[nodiscard]] static KvRxClass* desc();

protected:
    ~KvDbAttribute() = default;
};
