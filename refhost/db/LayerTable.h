#pragma once

#include "refhost/db/ObjectFace.h"

namespace kvhost {

/// Owner of the drawing's layers. Its reactors hear a change of any layer as a change of the table.
class KVHOST_API LayerTable final : public ObjectFace<LayerTable, KvDbObject, Object> {
public:
    LayerTable();
    ~LayerTable() override;
    [[nodiscard]] static KvRxClass* desc();

    // Object
    [[nodiscard]] const wchar_t* ClassName() const override { return L"LayerTable"; }
};

}  // namespace kvhost
