#include "core/ObjectWritability.h"

#include "core/ObjectIdentity.h"
#include "core/OpenEntity.h"
#include "host_sdk/KvDbAssoc.h"
#include "host_sdk/KvDbAttribute.h"
#include "host_sdk/KvDbGlobals.h"
#include "host_sdk/KvDbLayerTableRecord.h"
#include "host_sdk/KvEdServices.h"

namespace {

bool IsOnLockedLayer(const KvDbEntity& entity) {
    KvDbObject* object = nullptr;
    if (kvdbOpenKvDbObject(object, entity.layerId(), KvDb::kForRead) != Tolm::eOk) {
        return false;
    }
    const OpenHostObject<KvDbObject> opened(object);
    const auto* const layer = kvrxCast<KvDbLayerTableRecord>(object);
    return layer != nullptr && layer->isLocked();
}

bool IsWorkingSetActive() {
    const KvDbGlobals* const working = kvdbWorkingGlobals();
    const KvDbGlobals& globals = working != nullptr ? *working : *kvdbDefaultGlobals();
    return globals.workingSetDepth != 0 && globals.workingSetOwner != nullptr;
}

bool IsInWorkingSet(KvDbObjectId id) {
    return (id.stubFlags() & KVDB_STUB_IN_WORKING_SET) != 0;
}

// The host marks block references only; their attributes belong to the set with them.
bool IsAttributeInWorkingSet(const KvDbEntity& entity) {
    return entity.isKindOf(KvDbAttribute::desc()) && IsInWorkingSet(entity.ownerId());
}

bool IsInEditedArray(KvDbObjectId id) {
    const KvDbAssocArrayEditTransaction* const transaction =
        KvDbAssocArrayEditTransaction::getActiveTransaction();
    if (transaction == nullptr) {
        return true;
    }
    KvArray<KvDbObjectId> workSet;
    transaction->workSet(workSet);
    return workSet.contains(id);
}

}  // namespace

long IsObjectWritable(IDispatch* object) {
    const KvDbObjectId id = GetOwningObjectId(object);
    if (id.isNull()) {
        return 1;
    }
    const OpenEntity entity = OpenEntityForRead(id);
    if (!entity) {
        return E_FAIL;
    }
    if (IsOnLockedLayer(*entity)) {
        return 0;
    }
    if (IsWorkingSetActive() && !IsInWorkingSet(id) && !IsAttributeInWorkingSet(*entity)) {
        return 0;
    }
    return IsInEditedArray(id) ? 1 : 0;
}

bool IsSelectionBlockedByDrag(IDispatch** objects, int count) {
    if (!kvedIsDragging() || count < 1) {
        return false;
    }
    if (count == 1 && objects[0] == nullptr) {
        return true;
    }
    for (int index = 0; index < count; ++index) {
        KvDbObjectId id;
        if (SUCCEEDED(GetDatabaseObjectId(objects[index], id)) && !id.isNull()) {
            return true;
        }
    }
    return false;
}
