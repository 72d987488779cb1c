#pragma once

#include "host_sdk/KvDbObject.h"

/// One layer of a drawing.
class KVHOST_API KvDbLayerTableRecord : public KvDbObject {
public:
    [[nodiscard]] static KvRxClass* desc();

    [[nodiscard]] virtual bool isLocked() const = 0;

protected:
    ~KvDbLayerTableRecord() = default;
};
