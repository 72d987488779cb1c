#include "refhost/db/LayerTable.h"

#include "host_sdk/KvRxClass.h"

namespace kvhost {

LayerTable::LayerTable() = default;
LayerTable::~LayerTable() = default;

KvRxClass* LayerTable::desc() {
    static KvRxClass s_class(L"KvDbLayerTable", KvDbObject::desc());
    return &s_class;
}

}  // namespace kvhost
