#include "refhost/db/SwapNotice.h"

#include "refhost/db/ChangeSet.h"
#include "refhost/db/Database.h"
#include "refhost/db/ObjectStore.h"

namespace kvhost {

void SwapNotice::Add(const ChangeSet& changes) {
    for (const ChangeSet::Change& change : changes.Changes()) {
        if (m_known.insert(change.stub).second) {
            m_objects.push_back({change.stub, ObjectStore::ObjectOf(KvDbObjectId(change.stub))->IsErased()});
        }
    }
}

void SwapNotice::Send() const {
    for (const Before& before : m_objects) {
        Object& object = *ObjectStore::ObjectOf(KvDbObjectId(before.stub));
        if (object.IsErased() != before.erased) {
            object.GetDatabase()->NotifyErased(object, object.IsErased());
        } else {
            object.GetDatabase()->NotifyUndone(object);
        }
    }
}

}  // namespace kvhost
