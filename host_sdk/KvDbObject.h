#pragma once

#include "host_sdk/ErrorStatus.h"
#include "host_sdk/Export.h"
#include "host_sdk/KvDbObjectId.h"
#include "host_sdk/KvRxObject.h"

class KvDbObjectReactor;

namespace KvDb {
enum OpenMode : int { kForRead = 0, kForWrite = 1, kForNotify = 2 };
}

/// An object of a drawing database. Opened by id, closed by its opener, owned by its database.
class KVHOST_API KvDbObject : public KvRxObject {
public:
    [[nodiscard]] static KvRxClass* desc();

    [[nodiscard]] virtual KvDbObjectId objectId() const = 0;
    [[nodiscard]] virtual KvDbObjectId ownerId() const = 0;
    [[nodiscard]] virtual bool isErased() const = 0;

    /// Ends one open. eOk, or the status of the open state that forbids it.
    virtual Tolm::ErrorStatus close() = 0;
    /// Turns a read open into a write open. eWasOpenForRead when another reader is in.
    virtual Tolm::ErrorStatus upgradeOpen() = 0;

    /// Attach and detach a reactor, which stays the caller's. They need the object open in any way.
    /// eNotOpenForRead; eInvalidInput for a null reactor, one that is attached already, or is not.
    virtual Tolm::ErrorStatus addReactor(KvDbObjectReactor* reactor) const = 0;
    virtual Tolm::ErrorStatus removeReactor(KvDbObjectReactor* reactor) const = 0;

protected:
    ~KvDbObject() = default;
};

/// Opens the object; `object` is cleared first and stays null on failure. An erased object needs `openErased`
/// (eWasErased otherwise). Close with KvDbObject::close.
[[nodiscard]] KVHOST_API Tolm::ErrorStatus kvdbOpenKvDbObject(KvDbObject*& object, KvDbObjectId id,
                                                              KvDb::OpenMode mode, bool openErased = false);
/// The same; eNotThatKindOfClass for an object that is no `runtimeClass`. A null class takes every object.
[[nodiscard]] KVHOST_API Tolm::ErrorStatus kvdbOpenKvDbObject(KvDbObject*& object, KvDbObjectId id,
                                                              KvDb::OpenMode mode,
                                                              const KvRxClass* runtimeClass, bool openErased);
