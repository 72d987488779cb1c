#include <algorithm>
#include <utility>

#include "refhost/db/Attribute.h"
#include "refhost/db/Block.h"
#include "refhost/db/BlockReference.h"
#include "refhost/db/BlockTable.h"
#include "refhost/db/Database.h"
#include "refhost/db/DatabaseReactor.h"
#include "refhost/db/Dictionary.h"
#include "refhost/db/Layer.h"
#include "refhost/db/LayerTable.h"
#include "refhost/db/ObjectReactor.h"
#include "refhost/db/ObjectStore.h"
#include "refhost/db/Settings.h"

namespace kvhost {

namespace {

/// Calls each reactor that is attached when its turn comes: a reactor may detach itself and others.
template <class Reactor, class Call>
void CallEach(const std::vector<Reactor*>& attached, const Call& call) {
    const std::vector<Reactor*> reactors(attached.begin(), attached.end());
    for (Reactor* const reactor : reactors) {
        if (std::find(attached.begin(), attached.end(), reactor) != attached.end()) {
            call(*reactor);
        }
    }
}

template <class Owner>
bool IsOwnedBy(KvDbObjectId owner) {
    return Database::PeekAs<Owner>(owner) != nullptr;
}

bool CanOwn(KvDbObjectId owner, const Object& object) {
    if (dynamic_cast<const Attribute*>(&object) != nullptr) {
        return IsOwnedBy<BlockReference>(owner);
    }
    if (dynamic_cast<const Entity*>(&object) != nullptr) {
        return IsOwnedBy<Block>(owner);
    }
    if (dynamic_cast<const Layer*>(&object) != nullptr) {
        return IsOwnedBy<LayerTable>(owner);
    }
    if (dynamic_cast<const Block*>(&object) != nullptr) {
        return IsOwnedBy<BlockTable>(owner);
    }
    return dynamic_cast<const Dictionary*>(&object) != nullptr && IsOwnedBy<Dictionary>(owner);
}

}  // namespace

Tolm::ErrorStatus Database::CheckAppend(const Object& object, KvDbObjectId owner) const {
    if (object.GetDatabase() != nullptr || owner.database() != this || !CanOwn(owner, object)) {
        return Tolm::eInvalidInput;
    }
    if (Peek(owner)->IsErased()) {
        return Tolm::eWasErased;
    }
    if (const Layer* const layer = dynamic_cast<const Layer*>(&object)) {
        if (!LayerNamed(layer->Name()).isNull()) {
            return Tolm::eDuplicateKey;
        }
    }
    if (const Block* const block = dynamic_cast<const Block*>(&object)) {
        if (!BlockNamed(block->Name()).isNull()) {
            return Tolm::eDuplicateKey;
        }
    }
    if (const Dictionary* const entry = dynamic_cast<const Dictionary*>(&object)) {
        if (!PeekAs<Dictionary>(owner)->At(entry->Name()).isNull()) {
            return Tolm::eDuplicateKey;
        }
    }
    const BlockReference* const reference = dynamic_cast<const BlockReference*>(&object);
    if (reference != nullptr && ContainsBlock(reference->BlockId(), owner)) {
        return Tolm::eInvalidInput;
    }
    return Tolm::eOk;
}

Tolm::ErrorStatus Database::Append(std::unique_ptr<Object> object, KvDbObjectId owner, KvDbObjectId& id) {
    id = {};
    if (object == nullptr) {
        return Tolm::eInvalidInput;
    }
    m_undo->Preview().TakeBack();
    const Tolm::ErrorStatus status = CheckAppend(*object, owner);
    if (status != Tolm::eOk) {
        return status;
    }
    Entity* const entity = dynamic_cast<Entity*>(object.get());
    if (entity != nullptr) {
        if (entity->m_layer.isNull()) {
            entity->m_layer = GetSettings().CurrentLayer();
        }
        if (entity->m_layer.database() != this) {
            return Tolm::eInvalidInput;
        }
    }
    Object& appended = *object;
    if (!appended.Complaint().empty()) {
        return Tolm::eInvalidInput;
    }
    id = KvDbObjectId(m_store->Add(std::move(object), m_store->NextHandle(), owner.stub()));
    m_undo->NoteCreated(appended);
    m_undo->EndLooseStep();
    CallEach(m_reactors, [&](DatabaseReactor& reactor) { reactor.ObjectAppended(*this, appended); });
    NotifyOwnerModified(appended);
    return Tolm::eOk;
}

Tolm::ErrorStatus Database::AddLayer(std::wstring_view name, KvDbObjectId& id) {
    auto layer = std::make_unique<Layer>();
    const Tolm::ErrorStatus status = layer->SetName(name);
    return status == Tolm::eOk ? Append(std::move(layer), LayerTableId(), id) : status;
}

Tolm::ErrorStatus Database::AddBlock(std::wstring_view name, KvDbObjectId& id) {
    auto block = std::make_unique<Block>();
    const Tolm::ErrorStatus status = block->SetName(name);
    return status == Tolm::eOk ? Append(std::move(block), BlockTableId(), id) : status;
}

Tolm::ErrorStatus Database::AddViewport(std::wstring_view name, KvDbObjectId& id) {
    const auto append = [&](std::wstring_view entryName, KvDbObjectId owner, KvDbObjectId& entryId) {
        auto entry = std::make_unique<Dictionary>();
        const Tolm::ErrorStatus named = entry->SetName(entryName);
        return named == Tolm::eOk ? Append(std::move(entry), owner, entryId) : named;
    };
    KvDbObjectId viewports = PeekAs<Dictionary>(NamedObjectsId())->At(L"Viewports");
    const Tolm::ErrorStatus status =
        viewports.isNull() ? append(L"Viewports", NamedObjectsId(), viewports) : Tolm::eOk;
    return status == Tolm::eOk ? append(name, viewports, id) : status;
}

Tolm::ErrorStatus Database::CheckErase(const Object& object, bool erase) const {
    if (object.Id().handle() <= c_layerZero) {
        return Tolm::eNotAllowed;
    }
    for (KvDbStub* const stub : ObjectStore::OwnedBy(object.Id().stub())) {
        const Object& owned = *ObjectStore::ObjectOf(KvDbObjectId(stub));
        if (owned.IsOpenForWrite() || owned.IsOpenForRead()) {
            return owned.IsOpenForWrite() ? Tolm::eWasOpenForWrite : Tolm::eWasOpenForRead;
        }
        if (erase || owned.IsErased()) {
            const Tolm::ErrorStatus status = CheckErase(owned, erase);
            if (status != Tolm::eOk) {
                return status;
            }
        }
    }
    if (erase) {
        return IsUsed(object) ? Tolm::eNotAllowed : Tolm::eOk;
    }
    return CheckUnerase(object);
}

bool Database::IsUsed(const Object& object) const {
    const bool isLayer = dynamic_cast<const Layer*>(&object) != nullptr;
    if (!isLayer && dynamic_cast<const Block*>(&object) == nullptr) {
        return false;
    }
    if (object.Id() == GetSettings().CurrentLayer()) {
        return true;
    }
    return std::any_of(m_store->Slots().begin(), m_store->Slots().end(), [&](const ObjectStore::Slot& slot) {
        const Entity* const entity = dynamic_cast<const Entity*>(slot.object.get());
        if (entity == nullptr || entity->IsErased()) {
            return false;
        }
        const BlockReference* const reference = dynamic_cast<const BlockReference*>(entity);
        return isLayer ? entity->LayerId() == object.Id()
                       : reference != nullptr && reference->BlockId() == object.Id();
    });
}

Tolm::ErrorStatus Database::CheckUnerase(const Object& object) const {
    const Object* const owner = Peek(object.OwnerId());
    if (const Layer* const layer = dynamic_cast<const Layer*>(&object)) {
        return LayerNamed(layer->Name()).isNull() ? Tolm::eOk : Tolm::eDuplicateKey;
    }
    if (const Block* const block = dynamic_cast<const Block*>(&object)) {
        return BlockNamed(block->Name()).isNull() ? Tolm::eOk : Tolm::eDuplicateKey;
    }
    if (const Dictionary* const entry = dynamic_cast<const Dictionary*>(&object)) {
        return PeekAs<Dictionary>(object.OwnerId())->At(entry->Name()).isNull() ? Tolm::eOk
                                                                                : Tolm::eDuplicateKey;
    }
    const Entity* const entity = dynamic_cast<const Entity*>(&object);
    const BlockReference* const reference = dynamic_cast<const BlockReference*>(&object);
    const bool lacksSymbol =
        (entity != nullptr && Peek(entity->LayerId())->IsErased()) ||
        (reference != nullptr && (Peek(reference->BlockId())->IsErased() ||
                                  ContainsBlock(reference->BlockId(), reference->OwnerId())));
    // An attribute comes back with its block reference, which is no longer erased by then.
    const bool lacksOwner =
        owner != nullptr && owner->IsErased() && dynamic_cast<const Attribute*>(&object) == nullptr;
    return lacksSymbol || lacksOwner ? Tolm::eWasErased : Tolm::eOk;
}

void Database::EraseOwned(Object& object, bool erase) {
    m_store->ForgetNames();
    for (KvDbStub* const stub : ObjectStore::OwnedBy(object.Id().stub())) {
        Object& owned = *ObjectStore::ObjectOf(KvDbObjectId(stub));
        if (owned.IsErased() != erase) {
            NoteBeforeChange(owned);
            owned.m_erased = erase;
            EraseOwned(owned, erase);
        }
    }
}

void Database::PutErased(Object& object, bool erased) {
    object.m_erased = erased;
    m_store->ForgetNames();
}

void Database::NoteBeforeChange(Object& object) {
    m_undo->NoteBefore(object);
    if (dynamic_cast<const Entity*>(&object) == nullptr) {
        m_store->ForgetNames();
    }
    if (!object.m_changed) {
        object.m_changed = true;
        object.m_erasedBefore = object.m_erased;
        CallEach(object.m_reactors, [&](ObjectReactor& reactor) { reactor.OpenedForModify(object); });
    }
}

void Database::NoteClosedAfterChange(Object& object) {
    m_undo->NoteAfter(object);
    m_undo->EndLooseStep();
    if (object.m_erased == object.m_erasedBefore) {
        NotifyModified(object);
        return;
    }
    NotifyErased(object, object.m_erased);
    for (KvDbStub* const stub : ObjectStore::OwnedBy(object.Id().stub())) {
        Object& owned = *ObjectStore::ObjectOf(KvDbObjectId(stub));
        if (owned.m_changed && !owned.m_writing) {
            owned.m_changed = false;
            NoteClosedAfterChange(owned);
        }
    }
}

void Database::NotifyModified(Object& object) {
    CallEach(object.m_reactors, [&](ObjectReactor& reactor) { reactor.Modified(object); });
    CallEach(m_reactors, [&](DatabaseReactor& reactor) { reactor.ObjectModified(*this, object); });
    NotifyOwnerModified(object);
}

void Database::NotifyUndone(Object& object) {
    CallEach(object.m_reactors, [&](ObjectReactor& reactor) { reactor.Undone(object); });
    NotifyModified(object);
}

void Database::NotifyErased(Object& object, bool erased) {
    CallEach(object.m_reactors, [&](ObjectReactor& reactor) { reactor.Erased(object, erased); });
    CallEach(m_reactors, [&](DatabaseReactor& reactor) { reactor.ObjectErased(*this, object, erased); });
    NotifyOwnerModified(object);
}

void Database::NotifyOwnerModified(const Object& object) {
    // A table changes with its records; a block does not count as changed with each of its entities.
    if (dynamic_cast<const Entity*>(&object) == nullptr) {
        if (Object* const owner = ObjectStore::ObjectOf(object.OwnerId())) {
            CallEach(owner->m_reactors,
                     [&](ObjectReactor& reactor) { reactor.PartModified(*owner, object); });
        }
    }
}

}  // namespace kvhost
