#pragma once

#include "host_sdk/KvDbLayerTable.h"
#include "refhost/db/ObjectFace.h"

namespace kvhost {

/// Owner of the drawing's layers. Its reactors hear a change of any layer as a change of the table.
class KVHOST_API LayerTable final : public ObjectFace<LayerTable, KvDbLayerTable, Object> {
public:
    LayerTable();
    ~LayerTable() override;
    [[nodiscard]] static KvRxClass* desc();

    // KvDbSymbolTable
    [[nodiscard]] Tolm::ErrorStatus newIterator(KvDbSymbolTableIterator*& iterator, bool atBeginning,
                                                bool skipDeleted) const override;
    // KvDbLayerTable
    [[nodiscard]] Tolm::ErrorStatus getAt(const wchar_t* name, KvDbLayerTableRecord*& record,
                                          KvDb::OpenMode mode, bool openErased) const override;

    // Object
    [[nodiscard]] const wchar_t* ClassName() const override { return L"LayerTable"; }
};

}  // namespace kvhost
