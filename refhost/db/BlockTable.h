#pragma once

#include "refhost/db/ObjectFace.h"

namespace kvhost {

/// Owner of the drawing's blocks. Its reactors hear a change of any block as a change of the table.
class KVHOST_API BlockTable final : public ObjectFace<BlockTable, KvDbObject, Object> {
public:
    BlockTable();
    ~BlockTable() override;
    [[nodiscard]] static KvRxClass* desc();

    // Object
    [[nodiscard]] const wchar_t* ClassName() const override { return L"BlockTable"; }
};

}  // namespace kvhost
