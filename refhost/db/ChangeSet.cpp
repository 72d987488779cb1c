#include "refhost/db/ChangeSet.h"

#include "refhost/db/Database.h"
#include "refhost/db/ObjectState.h"
#include "refhost/db/ObjectStore.h"
#include "refhost/db/RecordReader.h"

namespace kvhost {

void ChangeSet::NoteBefore(const Object& object) {
    if (m_index.emplace(object.Id().stub(), m_changes.size()).second) {
        m_changes.push_back({object.Id().stub(), StateOf(object)});
    }
}

void ChangeSet::NoteCreated(const Object& object) {
    if (m_index.emplace(object.Id().stub(), m_changes.size()).second) {
        m_changes.push_back({object.Id().stub(), StateOf(object, true)});
    }
}

void ChangeSet::DropUnchanged() {
    const std::size_t dropped = std::erase_if(m_changes, [](const Change& change) {
        return change.state == StateOf(*ObjectStore::ObjectOf(KvDbObjectId(change.stub)));
    });
    if (dropped == 0) {
        return;
    }
    m_index.clear();
    for (std::size_t i = 0; i < m_changes.size(); ++i) {
        m_index.emplace(m_changes[i].stub, i);
    }
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
    for (Change& change : m_changes) {
        Object& object = *ObjectStore::ObjectOf(KvDbObjectId(change.stub));
        std::string present = StateOf(object);
        RecordReader reader(FieldsOfState(change.state), *object.GetDatabase());
        object.VisitAllFields(reader);
        object.GetDatabase()->PutErased(object, IsErasedState(change.state));
        change.state = std::move(present);
    }
}

}  // namespace kvhost
