#pragma once

#include <memory>
#include <set>

#include "core/Export.h"
#include "preview/IKvRestorable.h"

/// The variables of a control that a preview write may disturb; owns their saved values.
class KVPEX_API KvRestorableSet {
public:
    KvRestorableSet();
    KvRestorableSet(const KvRestorableSet&) = delete;
    KvRestorableSet& operator=(const KvRestorableSet&) = delete;
    /// Drops what was not restored; the variables keep what they have.
    ~KvRestorableSet();

    void Add(std::unique_ptr<IKvRestorable> restorable);
    /// Restores and deletes each, in the order of their addresses, and leaves the set empty.
    void RestoreAll();

private:
    std::set<std::unique_ptr<IKvRestorable>> m_restorables;
};
