#include "refhost/db/BlockTable.h"

#include "host_sdk/KvRxClass.h"

namespace kvhost {

BlockTable::BlockTable() = default;
BlockTable::~BlockTable() = default;

KvRxClass* BlockTable::desc() {
    static KvRxClass s_class(L"KvDbBlockTable", KvDbObject::desc());
    return &s_class;
}

}  // namespace kvhost
