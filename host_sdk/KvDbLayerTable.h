#pragma once

#include "host_sdk/KvDbLayerTableRecord.h"
#include "host_sdk/KvDbSymbolTable.h"

/// The layers of a drawing.
class KVHOST_API KvDbLayerTable : public KvDbSymbolTable {
public:
    [[nodiscard]] static KvRxClass* desc();

    /// Opens the layer of that name, letter case apart; eKeyNotFound, with a null record, when there is none.
    [[nodiscard]] virtual Tolm::ErrorStatus getAt(const wchar_t* name, KvDbLayerTableRecord*& record,
                                                  KvDb::OpenMode mode, bool openErased = false) const = 0;

protected:
    ~KvDbLayerTable() = default;
};
