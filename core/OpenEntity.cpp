#include "core/OpenEntity.h"

#include "framework/base/Hresult.h"

void CloseHostObject::operator()(KvDbObject* object) const {
    // A read open ends whatever the status says.
    fw::Ignore(object->close());
}

OpenEntity OpenEntityForRead(KvDbObjectId id) {
    KvDbEntity* entity = nullptr;
    const bool opened = kvdbOpenKvDbEntity(entity, id, KvDb::kForRead) == Tolm::eOk;
    return OpenEntity(opened ? entity : nullptr);
}
