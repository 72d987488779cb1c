#include "host_sdk/KvDbEntity.h"
#include "host_sdk/KvDbObject.h"
#include "host_sdk/KvDbObjectPointer.h"
#include "refhost/db/Database.h"
#include "refhost/db/Entity.h"
#include "refhost/testing/ServiceCall.h"

Tolm::ErrorStatus kvdbOpenKvDbObject(KvDbObject*& object, KvDbObjectId id, KvDb::OpenMode mode,
                                     bool openErased) {
    return kvdbOpenKvDbObject(object, id, mode, nullptr, openErased);
}

Tolm::ErrorStatus kvdbOpenKvDbObject(KvDbObject*& object, KvDbObjectId id, KvDb::OpenMode mode,
                                     const KvRxClass* runtimeClass, bool openErased) {
    kvhost::ServiceCall call(L"kvdbOpenKvDbObject", id, mode);
    object = nullptr;
    if (call.Fails()) {
        return call.Returns(Tolm::eInvalidInput);
    }
    kvhost::Object* opened = nullptr;
    const Tolm::ErrorStatus status = kvhost::Database::Open(opened, id, mode, openErased);
    if (opened == nullptr) {
        return call.Returns(status);
    }
    if (runtimeClass != nullptr && !opened->DbObject()->isKindOf(runtimeClass)) {
        opened->Close();
        return call.Returns(Tolm::eNotThatKindOfClass);
    }
    object = opened->DbObject();
    return call.Returns(status);
}

void kvdbDeleteObject(KvDbObject* object) {
    const kvhost::ServiceCall call(L"kvdbDeleteObject");
    std::unique_ptr<kvhost::Object> unowned(kvhost::Object::From(object));
    if (unowned && unowned->GetDatabase() != nullptr) {
        static_cast<void>(unowned.release());  // its database owns it
    }
}

Tolm::ErrorStatus kvdbOpenKvDbEntity(KvDbEntity*& entity, KvDbObjectId id, KvDb::OpenMode mode,
                                     bool openErased) {
    kvhost::ServiceCall call(L"kvdbOpenKvDbEntity", id, mode);
    entity = nullptr;
    if (call.Fails()) {
        return call.Returns(Tolm::eInvalidInput);
    }
    kvhost::Object* opened = nullptr;
    const Tolm::ErrorStatus status = kvhost::Database::Open(opened, id, mode, openErased);
    if (opened == nullptr) {
        return call.Returns(status);
    }
    entity = dynamic_cast<KvDbEntity*>(opened->DbObject());
    if (entity == nullptr) {
        opened->Close();
        return call.Returns(Tolm::eNotThatKindOfClass);
    }
    return call.Returns(status);
}
