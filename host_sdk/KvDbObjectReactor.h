#pragma once

#include "host_sdk/Export.h"
#include "host_sdk/KvDbObjectId.h"
#include "host_sdk/KvRxObject.h"

class KvDbObject;

/// Hears of the changes of the objects that it is added to (KvDbObject::addReactor). Not owned by them;
/// one that dies attached is taken off. Each operation does nothing unless a class overrides it. Their order
/// is fixed.
class KVHOST_API KvDbObjectReactor : public KvRxObject {
public:
    KvDbObjectReactor();
    KvDbObjectReactor(const KvDbObjectReactor&) = delete;
    KvDbObjectReactor& operator=(const KvDbObjectReactor&) = delete;
    virtual ~KvDbObjectReactor();

    // KvRxObject
    [[nodiscard]] KvRxClass* isA() const override;
    [[nodiscard]] static KvRxClass* desc();

    /// An open for write was given up.
    virtual void cancelled(const KvDbObject* object);
    virtual void copied(const KvDbObject* object, const KvDbObject* copy);
    /// Erased, or (`isErased` false) brought back.
    virtual void erased(const KvDbObject* object, bool isErased);
    /// The object is being destroyed; the reactor is off it already.
    virtual void onWatchedObjectGone(const KvDbObject* object);
    /// The first change of an open is about to happen.
    virtual void openedForModify(const KvDbObject* object);
    /// An open with changes was closed, a part of the object changed, or undo changed it.
    virtual void onWatchedObjectModified(const KvDbObject* object);
    /// A part of the object, as a record of a table, changed; comes before onWatchedObjectModified.
    virtual void subObjModified(const KvDbObject* object, const KvDbObject* part);
    /// Undo or redo changed the object; comes before onWatchedObjectModified.
    virtual void modifyUndone(const KvDbObject* object);
    virtual void modifiedXData(const KvDbObject* object);
    /// Undo took the object's creation back, or redo made it again.
    virtual void unappended(const KvDbObject* object);
    virtual void reappended(const KvDbObject* object);
    virtual void objectClosed(KvDbObjectId id);
};
