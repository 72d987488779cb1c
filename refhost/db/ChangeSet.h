#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "host_sdk/ErrorStatus.h"
#include "host_sdk/Export.h"
#include "host_sdk/KvDbObjectId.h"
#include "refhost/db/StateStore.h"

namespace kvhost {

class Object;

/// Byte-exact record of objects' states before they changed, by which they can be put back. The objects know
/// their place in it, so that a further change costs the same in a record of one and of a million objects.
class KVHOST_API ChangeSet {
public:
    /// A preview may change objects amid a step that has changed them: they have a place for each.
    enum class Kind : std::uint8_t { Step, Preview };
    enum class Outcome : std::uint8_t { Unknown, Same, Differs };
    struct Change {
        KvDbStub* stub;
        std::string_view state;
        Outcome outcome = Outcome::Unknown;
    };

    explicit ChangeSet(Kind kind = Kind::Step);

    /// Keeps the present state of the object, unless one is kept already.
    void NoteBefore(Object& object);
    /// As NoteBefore for an object that did not exist before: its state before is "erased".
    void NoteCreated(Object& object);
    /// Looks whether a noted object is again what it was. Called where the object is at hand: a look at all
    /// of them in the end would fetch each from memory once more.
    void NoteAfter(const Object& object);
    /// Drops the objects that are again what they were. Nothing is noted after this.
    void DropUnchanged();
    [[nodiscard]] bool IsEmpty() const { return m_changes.empty(); }
    [[nodiscard]] const std::vector<Change>& Changes() const { return m_changes; }

    /// Why Swap can't work now: eWasOpenForRead or eWasOpenForWrite when one of the objects is open.
    [[nodiscard]] Tolm::ErrorStatus CanSwap() const;
    /// Puts the objects into the kept states and keeps those that they had. Reactors do not hear of it here:
    /// they are told when all objects are consistent again.
    void Swap();

private:
    /// The entry of the object; null when there is none.
    [[nodiscard]] Change* Find(const Object& object);
    void Add(Object& object, bool erased);
    void LookAt(Change& change, const Object& object);

    std::vector<Change> m_changes;
    StateStore m_states;
    std::string m_present;  // of the object that is looked at, kept for its capacity
    std::uint64_t m_serial;
    Kind m_kind;
};

}  // namespace kvhost
