#pragma once

#include "core/Export.h"
#include "preview/IKvRestorable.h"

/// Restores at most once. It must be restored or discarded before it is destroyed: the derived part, which
/// knows how, is gone by the time of the base's destructor.
class KVPEX_API KvRestorableBase : public IKvRestorable {
public:
    KvRestorableBase() = default;
    KvRestorableBase(const KvRestorableBase&) = delete;
    KvRestorableBase& operator=(const KvRestorableBase&) = delete;
    ~KvRestorableBase() override;

    // IKvRestorable
    void Restore() override;
    void Discard() override;

protected:
    virtual void DoRestore() = 0;

private:
    bool m_bDone = false;
};
