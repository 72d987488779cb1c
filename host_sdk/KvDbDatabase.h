#pragma once

#include "host_sdk/Export.h"
#include "host_sdk/KvDbObjectId.h"
#include "host_sdk/KvRxObject.h"

class KvDbUndoController;

/// A drawing database; owned by its document.
class KVHOST_API KvDbDatabase : public KvRxObject {
public:
    [[nodiscard]] static KvRxClass* desc();

    /// Null for a database that keeps no undo record. Not owned by the caller.
    [[nodiscard]] virtual KvDbUndoController* undoController() const = 0;
    [[nodiscard]] virtual KvDbObjectId layerTableId() const = 0;

protected:
    ~KvDbDatabase() = default;
};
