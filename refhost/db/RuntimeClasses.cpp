#include "host_sdk/KvDbAttribute.h"
#include "host_sdk/KvDbDatabase.h"
#include "host_sdk/KvDbEntity.h"
#include "host_sdk/KvDbLayerTable.h"
#include "host_sdk/KvDbObject.h"
#include "host_sdk/KvDbObjectReactor.h"
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

KvRxClass* KvDbSymbolTable::desc() {
    static KvRxClass s_class(L"KvDbSymbolTable", KvDbObject::desc());
    return &s_class;
}

KvRxClass* KvDbLayerTable::desc() {
    static KvRxClass s_class(L"KvDbLayerTable", KvDbSymbolTable::desc());
    return &s_class;
}

KvRxClass* KvDbSymbolTableRecord::desc() {
    static KvRxClass s_class(L"KvDbSymbolTableRecord", KvDbObject::desc());
    return &s_class;
}

KvRxClass* KvDbLayerTableRecord::desc() {
    static KvRxClass s_class(L"KvDbLayerTableRecord", KvDbSymbolTableRecord::desc());
    return &s_class;
}

KvRxClass* KvDbObjectReactor::desc() {
    static KvRxClass s_class(L"KvDbObjectReactor", KvRxObject::desc());
    return &s_class;
}

KvRxClass* KvDbDatabase::desc() {
    static KvRxClass s_class(L"KvDbDatabase", KvRxObject::desc());
    return &s_class;
}
