#pragma once

#include "host_sdk/KvDbSymbolTableRecord.h"

/// One layer of a drawing.
class KVHOST_API KvDbLayerTableRecord : public KvDbSymbolTableRecord {
public:
    [[nodiscard]] static KvRxClass* desc();

    [[nodiscard]] virtual bool isLocked() const = 0;
    [[nodiscard]] virtual bool isFrozen() const = 0;
    [[nodiscard]] virtual bool isOff() const = 0;
    /// The layer looks otherwise in that viewport than in the rest of the drawing.
    [[nodiscard]] virtual bool hasOverrides(KvDbObjectId viewport) const = 0;

protected:
    ~KvDbLayerTableRecord() = default;
};
