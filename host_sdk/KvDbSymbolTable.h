#pragma once

#include "host_sdk/KvDbObject.h"

/// Walk over the records of a symbol table. The caller deletes it.
class KVHOST_API KvDbSymbolTableIterator {
public:
    KvDbSymbolTableIterator() = default;
    KvDbSymbolTableIterator(const KvDbSymbolTableIterator&) = delete;
    KvDbSymbolTableIterator& operator=(const KvDbSymbolTableIterator&) = delete;
    virtual ~KvDbSymbolTableIterator();

    /// The walk is past its last record.
    [[nodiscard]] virtual bool done() const = 0;
    /// The record at which the walk stands; eInvalidInput when it is done.
    [[nodiscard]] virtual Tolm::ErrorStatus getRecordId(KvDbObjectId& id) const = 0;
    virtual void step(bool forward, bool skipDeleted) = 0;
};

/// A table of named records of the drawing.
class KVHOST_API KvDbSymbolTable : public KvDbObject {
public:
    [[nodiscard]] static KvRxClass* desc();

    /// Walks the records that the table has now, at its first or last one. `iterator` is the caller's, null
    /// on failure.
    [[nodiscard]] virtual Tolm::ErrorStatus newIterator(KvDbSymbolTableIterator*& iterator, bool atBeginning,
                                                        bool skipDeleted) const = 0;

protected:
    ~KvDbSymbolTable() = default;
};
