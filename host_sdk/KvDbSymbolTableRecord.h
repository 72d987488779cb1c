#pragma once

#include "host_sdk/KvDbObject.h"

/// A named record of a symbol table.
class KVHOST_API KvDbSymbolTableRecord : public KvDbObject {
public:
    [[nodiscard]] static KvRxClass* desc();

    /// The record's name, which the caller frees with delete[]; null on failure.
    [[nodiscard]] virtual Tolm::ErrorStatus getName(wchar_t*& name) const = 0;
    /// The record comes from another drawing that is only referred to.
    [[nodiscard]] virtual bool isDependent() const = 0;

protected:
    ~KvDbSymbolTableRecord() = default;
};
