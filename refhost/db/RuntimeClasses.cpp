#include "host_sdk/KvDbAttribute.h"
#include "host_sdk/KvDbDatabase.h"
#include "host_sdk/KvDbEntity.h"
#include "host_sdk/KvDbLayerTableRecord.h"
#include "host_sdk/KvDbObject.h"
#include "host_sdk/KvRxClass.h"

KvRxClass* KvDbObject::desc() {
    static KvRxClass s_class(L"KvDbObject", KvRxObject::desc());
    return &s_class;
}

KvRxClass* KvDbEntity::desc() {
    static KvRxClass s_class(L"KvDbEntity", KvDbObject::desc());
    return &s_class;
}

KvRxClass* KvDbAttribute::desc() {
    static KvRxClass s_class(L"KvDbAttribute", KvDbEntity::desc());
    return &s_class;
}

KvRxClass* KvDbLayerTableRecord::desc() {
    static KvRxClass s_class(L"KvDbLayerTableRecord", KvDbObject::desc());
    return &s_class;
}

KvRxClass* KvDbDatabase::desc() {
    static KvRxClass s_class(L"KvDbDatabase", KvRxObject::desc());
    return &s_class;
}
