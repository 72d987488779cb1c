#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "host_sdk/ErrorStatus.h"
#include "host_sdk/Export.h"
#include "host_sdk/KvDbObjectId.h"

namespace kvhost {

class Object;

/// Byte-exact record of objects' states before they changed, by which they can be put back.
class KVHOST_API ChangeSet {
public:
    struct Change {
        KvDbStub* stub;
        std::string state;
    };

    /// Keeps the present state of the object, unless one is kept already.
    void NoteBefore(const Object& object);
    /// As NoteBefore for an object that did not exist before: its state before is "erased".
    void NoteCreated(const Object& object);
    /// Drops the objects whose state is again what it was.
    void DropUnchanged();
    [[nodiscard]] bool IsEmpty() const { return m_changes.empty(); }
    [[nodiscard]] const std::vector<Change>& Changes() const { return m_changes; }

    /// Why Swap can't work now: eWasOpenForRead or eWasOpenForWrite when one of the objects is open.
    [[nodiscard]] Tolm::ErrorStatus CanSwap() const;
    /// Puts the objects into the kept states and keeps those that they had. Reactors do not hear of it here:
    /// they are told when all objects are consistent again.
    void Swap();

private:
    std::vector<Change> m_changes;
    std::unordered_map<KvDbStub*, std::size_t> m_index;
};

}  // namespace kvhost
