#include "refhost/db/ChangeSet.h"

#include <atomic>
#include <utility>

#include "refhost/db/Database.h"
#include "refhost/db/ObjectState.h"
#include "refhost/db/ObjectStore.h"
#include "refhost/db/RecordReader.h"

namespace kvhost {

namespace {

/// No two records have the same, so that an object's place in one that is gone means nothing.
std::uint64_t NextSerial() {
    static std::atomic<std::uint64_t> s_last = 0;
    return ++s_last;
}

}  // namespace

ChangeSet::ChangeSet(Kind kind) : m_serial(NextSerial()), m_kind(kind) {
}

ChangeSet::Change* ChangeSet::Find(const Object& object) {
    const Object::ChangePlace& place = object.m_changePlaces[static_cast<std::size_t>(m_kind)];
    return place.record == m_serial ? &m_changes[place.index] : nullptr;
}

void ChangeSet::Add(Object& object, bool erased) {
    object.m_changePlaces[static_cast<std::size_t>(m_kind)] = {m_serial, m_changes.size()};
    m_present.clear();
    AppendState(object, erased, m_present);
    m_changes.push_back({object.Id().stub(), m_states.Keep(m_present)});
}

void ChangeSet::NoteBefore(Object& object) {
    if (Change* const change = Find(object)) {
        change->outcome = Outcome::Unknown;
    } else {
        Add(object, object.IsErased());
    }
}

void ChangeSet::NoteCreated(Object& object) {
    Add(object, true);
}

void ChangeSet::NoteAfter(const Object& object) {
    if (Change* const change = Find(object)) {
        LookAt(*change, object);
    }
}

void ChangeSet::LookAt(Change& change, const Object& object) {
    m_present.clear();
    AppendState(object, object.IsErased(), m_present);
    change.outcome = change.state == m_present ? Outcome::Same : Outcome::Differs;
}

void ChangeSet::DropUnchanged() {
    for (Change& change : m_changes) {
        if (change.outcome == Outcome::Unknown) {
            LookAt(change, *ObjectStore::ObjectOf(KvDbObjectId(change.stub)));
        }
    }
    std::erase_if(m_changes, [](const Change& change) { return change.outcome == Outcome::Same; });
}

Tolm::ErrorStatus ChangeSet::CanSwap() const {
    for (const Change& change : m_changes) {
        const Object* const object = ObjectStore::ObjectOf(KvDbObjectId(change.stub));
        if (object->IsOpenForWrite()) {
            return Tolm::eWasOpenForWrite;
        }
        if (object->IsOpenForRead()) {
            return Tolm::eWasOpenForRead;
        }
    }
    return Tolm::eOk;
}

void ChangeSet::Swap() {
    const auto kept = std::exchange(m_states, {});
    for (Change& change : m_changes) {
        Object& object = *ObjectStore::ObjectOf(KvDbObjectId(change.stub));
        m_present.clear();
        AppendState(object, object.IsErased(), m_present);
        RecordReader reader(FieldsOfState(change.state), *object.GetDatabase());
        object.VisitAllFields(reader);
        object.GetDatabase()->PutErased(object, IsErasedState(change.state));
        change.state = m_states.Keep(m_present);
    }
}

}  // namespace kvhost
