#pragma once

#include "host_sdk/KvDbAssoc.h"
#include "host_sdk/KvDbGlobals.h"

namespace kvhost {

/// The globals that hold while no database works, for the host to change.
[[nodiscard]] KVHOST_API KvDbGlobals& DefaultGlobals();

/// Edit of an associative array: while one lives only its work set may change. They nest; the last one
/// counts.
class KVHOST_API ArrayEditTransaction final : public KvDbAssocArrayEditTransaction {
public:
    explicit ArrayEditTransaction(KvArray<KvDbObjectId> workSet);
    ArrayEditTransaction(const ArrayEditTransaction&) = delete;
    ArrayEditTransaction& operator=(const ArrayEditTransaction&) = delete;
    ~ArrayEditTransaction();

    // KvDbAssocArrayEditTransaction
    void workSet(KvArray<KvDbObjectId>& ids) const override;

private:
    friend class ::KvDbAssocArrayEditTransaction;

    KvArray<KvDbObjectId> m_workSet;
    ArrayEditTransaction* m_previous = nullptr;
};

/// Whether the progress meter of associations is on (it is until switched off).
[[nodiscard]] KVHOST_API bool IsProgressMeterEnabled();

}  // namespace kvhost
