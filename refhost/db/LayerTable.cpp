#include "refhost/db/LayerTable.h"

#include "host_sdk/KvRxClass.h"
#include "refhost/db/Database.h"
#include "refhost/db/Layer.h"
#include "refhost/db/TableIterator.h"
#include "refhost/testing/ServiceCall.h"

namespace kvhost {

LayerTable::LayerTable() = default;
LayerTable::~LayerTable() = default;

KvRxClass* LayerTable::desc() {
    return KvDbLayerTable::desc();
}

Tolm::ErrorStatus LayerTable::newIterator(KvDbSymbolTableIterator*& iterator, bool atBeginning,
                                          bool skipDeleted) const {
    ServiceCall call(L"newIterator", atBeginning, skipDeleted);
    iterator = nullptr;
    if (call.Fails()) {
        return call.Returns(Tolm::eOutOfMemory);
    }
    iterator = std::make_unique<TableIterator>(GetDatabase()->AllOwnedBy(Id()), atBeginning, skipDeleted)
                   .release();  // the caller's
    return call.Returns(Tolm::eOk);
}

Tolm::ErrorStatus LayerTable::getAt(const wchar_t* name, KvDbLayerTableRecord*& record, KvDb::OpenMode mode,
                                    bool openErased) const {
    ServiceCall call(L"getAt", name, mode);
    record = nullptr;
    const KvDbObjectId id =
        call.Fails() || name == nullptr ? KvDbObjectId() : GetDatabase()->LayerNamed(name);
    if (id.isNull()) {
        return call.Returns(Tolm::eKeyNotFound);
    }
    Object* layer = nullptr;
    const Tolm::ErrorStatus status = Database::Open(layer, id, mode, openErased);
    record = static_cast<Layer*>(layer);
    return call.Returns(status);
}

}  // namespace kvhost
