#pragma once

#include "host_sdk/ErrorStatus.h"
#include "host_sdk/Export.h"

/// Codes of KvDbUndoController::undoGroup.
inline constexpr int KVDB_UNDO_GROUP_BEGIN = 8;
inline constexpr int KVDB_UNDO_GROUP_END = 16;

/// Undo record of one database, owned by it. A drawing is not closed while a group is open in it: who began
/// the group may keep the controller until the group's end. Slots in order; the reserved ones are the host's
/// own.
class KVHOST_API KvDbUndoController {
public:
    virtual void ReservedSlot0() {}
    virtual void ReservedSlot1() {}
    virtual void ReservedSlot2() {}
    virtual void ReservedSlot3() {}
    virtual void ReservedSlot4() {}
    /// Slot 5. Takes `count` groups back; eInvalidInput when there are fewer or a group is open.
    virtual Tolm::ErrorStatus undo(int count) = 0;
    virtual void ReservedSlot6() {}
    virtual void ReservedSlot7() {}
    virtual void ReservedSlot8() {}
    /// Slot 9. Begins (8) or ends (16) a group; groups nest, the outermost is the step of undo and has its
    /// `text`.
    virtual Tolm::ErrorStatus undoGroup(int code, const wchar_t* text) = 0;

protected:
    ~KvDbUndoController() = default;
};
