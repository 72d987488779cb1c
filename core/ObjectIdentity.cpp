#include "core/ObjectIdentity.h"

#include "framework/com/ComPtr.h"
#include "host_sdk/IDatabaseObjectIdentity.h"
#include "host_sdk/ITransientObjectIdentity.h"

HRESULT GetDatabaseObjectId(IUnknown* object, KvDbObjectId& id) {
    const auto identity = fw::QueryFrom<IDatabaseObjectIdentity>(object);
    return identity ? identity->GetObjectId(&id) : E_NOINTERFACE;
}

KvDbObjectId GetOwningObjectId(IUnknown* object) {
    KvDbObjectId id;
    if (SUCCEEDED(GetDatabaseObjectId(object, id))) {
        return id;
    }
    const auto identity = fw::QueryFrom<ITransientObjectIdentity>(object);
    KvDbFullSubentPath path;
    if (!identity || FAILED(identity->GetFullSubentPath(&path)) || path.objectIds().isEmpty()) {
        return {};
    }
    return path.objectIds()[0];
}

bool GetHostClassId(IUnknown* object, CLSID& classId) {
    if (const auto identity = fw::QueryFrom<IDatabaseObjectIdentity>(object)) {
        return SUCCEEDED(identity->GetClassId(&classId));
    }
    const auto identity = fw::QueryFrom<ITransientObjectIdentity>(object);
    return identity && SUCCEEDED(identity->GetClassId(&classId));
}
