#pragma once

#include "host_sdk/Export.h"
#include "host_sdk/KvArray.h"
#include "host_sdk/KvDbObjectId.h"
#include "host_sdk/KvString.h"

/// Evaluates the associations between objects after a change.
class KVHOST_API KvDbAssocManager {
public:
    /// Shows or hides the meter of a long evaluation, with its text.
    static void enableProgressMeter(bool enable, const KvString& text);
};

/// Edit of an associative array in place: while one is active only its work set may change.
class KVHOST_API KvDbAssocArrayEditTransaction {
public:
    /// The running transaction, owned by the host; null when none runs.
    [[nodiscard]] static KvDbAssocArrayEditTransaction* getActiveTransaction();

    /// Appends the ids that may be edited.
    virtual void workSet(KvArray<KvDbObjectId>& ids) const = 0;

protected:
    ~KvDbAssocArrayEditTransaction() = default;
};
