#pragma once

#include "host_sdk/Export.h"

class KvDbDatabase;

/// An open drawing. Slots in order; the reserved ones are the host's own.
class KVHOST_API KvApDocument {
public:
    virtual void ReservedSlot0() {}
    virtual void ReservedSlot1() {}
    virtual void ReservedSlot2() {}
    virtual void ReservedSlot3() {}
    virtual void ReservedSlot4() {}
    virtual void ReservedSlot5() {}
    virtual void ReservedSlot6() {}
    virtual void ReservedSlot7() {}
    virtual void ReservedSlot8() {}
    virtual void ReservedSlot9() {}
    /// Slot 10. Null while the document is being closed.
    [[nodiscard]] virtual KvDbDatabase* database() const = 0;
    virtual void ReservedSlot11() {}
    virtual void ReservedSlot12() {}
    virtual void ReservedSlot13() {}
    /// Slot 14. The command line waits for input, so that its prompt is to be shown again after a modeless
    /// change.
    [[nodiscard]] virtual bool isQuiescent() const = 0;
    /// Slot 15. The drawing may show a live preview now: no command and no drag runs in it.
    [[nodiscard]] virtual bool allowsLivePreview() const = 0;

protected:
    ~KvApDocument() = default;
};

/// The host's open drawings. Slots in order; the reserved ones are the host's own.
class KVHOST_API KvApDocManager {
public:
    virtual void ReservedSlot0() {}
    virtual void ReservedSlot1() {}
    virtual void ReservedSlot2() {}
    virtual void ReservedSlot3() {}
    virtual void ReservedSlot4() {}
    virtual void ReservedSlot5() {}
    virtual void ReservedSlot6() {}
    /// Slot 7. Null when no document is open.
    [[nodiscard]] virtual KvApDocument* curDocument() const = 0;

protected:
    ~KvApDocManager() = default;
};

/// Null before the host has started.
[[nodiscard]] KVHOST_API KvApDocManager* kvDocManagerPtr();
