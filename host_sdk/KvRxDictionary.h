#pragma once

#include "host_sdk/Export.h"
#include "host_sdk/KvRxObject.h"

/// Named objects of the host. Slots in order; the reserved ones are the host's own.
class KVHOST_API KvRxDictionary : public KvRxObject {
public:
    // Slot 0 is isA.
    virtual void ReservedSlot1() {}
    virtual void ReservedSlot2() {}
    virtual void ReservedSlot3() {}
    virtual void ReservedSlot4() {}
    virtual void ReservedSlot5() {}
    virtual void ReservedSlot6() {}
    virtual void ReservedSlot7() {}
    /// Slot 8. The object of that name, not owned by the caller; null when there is none.
    [[nodiscard]] virtual KvRxObject* at(const wchar_t* name) const = 0;

protected:
    ~KvRxDictionary() = default;
};

/// The host's table of system services; never null while a host runs.
[[nodiscard]] KVHOST_API KvRxDictionary* kvrxSysRegistry();
