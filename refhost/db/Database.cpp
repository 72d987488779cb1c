#include "refhost/db/Database.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

#include "refhost/db/Attribute.h"
#include "refhost/db/Block.h"
#include "refhost/db/BlockReference.h"
#include "refhost/db/BlockTable.h"
#include "refhost/db/DatabaseReactor.h"
#include "refhost/db/Dictionary.h"
#include "refhost/db/Layer.h"
#include "refhost/db/LayerTable.h"
#include "refhost/db/ObjectReactor.h"
#include "refhost/db/ObjectStore.h"
#include "refhost/db/Settings.h"
#include "refhost/testing/ServiceCall.h"

namespace kvhost {

namespace {

constexpr const wchar_t* c_viewports = L"Viewports";

}  // namespace

Database::Database()
    : m_store(std::make_unique<ObjectStore>(*this)), m_undo(std::make_unique<UndoController>()) {
    static long long s_lastSerialNumber = 0;
    m_serialNumber = ++s_lastSerialNumber;
    MakeFixedObjects();
}

Database::~Database() {
    const std::vector<DatabaseReactor*> reactors = std::exchange(m_reactors, {});
    for (DatabaseReactor* const reactor : reactors) {
        reactor->DatabaseGone(*this);
    }
    for (const ObjectStore::Slot& slot : m_store->Slots()) {
        const std::vector<ObjectReactor*> own = std::exchange(slot.object->m_reactors, {});
        for (ObjectReactor* const reactor : own) {
            reactor->Gone(*slot.object);
        }
    }
}

void Database::KeepRetiredIds(bool keep) {
    ObjectStore::KeepRetiredStubs(keep);
}

Database* Database::From(KvDbDatabase* database) {
    return static_cast<Database*>(database);
}

KvRxClass* Database::desc() {
    return KvDbDatabase::desc();
}

KvRxClass* Database::isA() const {
    return KvDbDatabase::desc();
}

KvDbUndoController* Database::undoController() const {
    ServiceCall call(L"undoController");
    const bool given = !call.Fails() && m_showUndoController;
    call.Returns(given);
    return given ? m_undo.get() : nullptr;
}

KvDbObjectId Database::layerTableId() const {
    ServiceCall call(L"layerTableId");
    return call.Returns(call.Fails() ? KvDbObjectId() : LayerTableId());
}

void Database::MakeFixedObjects() {
    m_store->Add(std::make_unique<LayerTable>(), c_layerTable, nullptr);
    m_store->Add(std::make_unique<BlockTable>(), c_blockTable, nullptr);
    auto modelSpace = std::make_unique<Block>();
    modelSpace->m_name = L"*Model_Space";
    m_store->Add(std::move(modelSpace), c_modelSpace, BlockTableId().stub());
    m_store->Add(std::make_unique<Dictionary>(), c_namedObjects, nullptr);
    m_store->Add(std::make_unique<Settings>(), c_settings, nullptr);
    auto layerZero = std::make_unique<Layer>();
    layerZero->m_name = L"0";
    m_store->Add(std::move(layerZero), c_layerZero, LayerTableId().stub());
    static_cast<Settings*>(ObjectStore::ObjectOf(SettingsId()))->m_currentLayer = IdOf(c_layerZero);
}

const Settings& Database::GetSettings() const {
    return static_cast<const Settings&>(*Peek(SettingsId()));
}

KvDbObjectId Database::IdOf(std::uint64_t handle) const {
    return KvDbObjectId(m_store->Find(handle));
}

const Object* Database::Peek(KvDbObjectId id) {
    return ObjectStore::ObjectOf(id);
}

std::vector<KvDbObjectId> Database::OwnedBy(KvDbObjectId owner) const {
    std::vector<KvDbObjectId> ids;
    if (ObjectStore::ObjectOf(owner) != nullptr) {
        for (KvDbStub* const stub : ObjectStore::OwnedBy(owner.stub())) {
            if (!ObjectStore::ObjectOf(KvDbObjectId(stub))->IsErased()) {
                ids.emplace_back(stub);
            }
        }
    }
    return ids;
}

std::vector<KvDbObjectId> Database::AllOwnedBy(KvDbObjectId owner) const {
    if (ObjectStore::ObjectOf(owner) == nullptr) {
        return {};
    }
    const std::vector<KvDbStub*>& stubs = ObjectStore::OwnedBy(owner.stub());
    return std::vector<KvDbObjectId>(stubs.begin(), stubs.end());
}

KvDbObjectId Database::LayerNamed(std::wstring_view name) const {
    return KvDbObjectId(m_store->FindNamed(SymbolKind::Layer, name));
}

KvDbObjectId Database::BlockNamed(std::wstring_view name) const {
    return KvDbObjectId(m_store->FindNamed(SymbolKind::Block, name));
}

KvDbObjectId Database::ViewportNamed(std::wstring_view name) const {
    const KvDbObjectId viewports = PeekAs<Dictionary>(NamedObjectsId())->At(c_viewports);
    return viewports.isNull() || name.empty() ? KvDbObjectId() : PeekAs<Dictionary>(viewports)->At(name);
}

KvDbObjectId Database::CurrentViewport() const {
    return ViewportNamed(GetSettings().CurrentViewport());
}

bool Database::ContainsBlock(KvDbObjectId block, KvDbObjectId inner) {
    if (inner.isNull()) {
        return false;
    }
    std::vector<KvDbObjectId> waiting{block};
    std::unordered_set<KvDbStub*> seen;
    while (!waiting.empty()) {
        const KvDbObjectId next = waiting.back();
        waiting.pop_back();
        const Object* const record = Peek(next);
        if (record == nullptr || !seen.insert(next.stub()).second) {
            continue;
        }
        if (next == inner) {
            return true;
        }
        for (const KvDbObjectId id : record->GetDatabase()->OwnedBy(next)) {
            if (const BlockReference* const reference = PeekAs<BlockReference>(id)) {
                waiting.push_back(reference->BlockId());
            }
        }
    }
    return false;
}

int Database::OpenCount() const {
    int count = 0;
    for (const ObjectStore::Slot& slot : m_store->Slots()) {
        count += slot.object->m_readers + slot.object->m_notified + (slot.object->m_writing ? 1 : 0);
    }
    return count;
}

Tolm::ErrorStatus Database::Open(Object*& object, KvDbObjectId id, KvDb::OpenMode mode, bool openErased) {
    object = nullptr;
    if (id.isNull()) {
        return Tolm::eNullObjectId;
    }
    if (id.database() == nullptr) {
        return Tolm::eNotInDatabase;
    }
    Object* const candidate = ObjectStore::ObjectOf(id);
    if (candidate == nullptr) {
        return Tolm::eUnknownHandle;
    }
    if (candidate->IsErased() && !openErased) {
        return Tolm::eWasErased;
    }
    const Tolm::ErrorStatus status = candidate->Open(mode);
    if (status == Tolm::eOk) {
        object = candidate;
    }
    return status;
}

Tolm::ErrorStatus Database::CanWrite(KvDbObjectId id) {
    if (id.isNull()) {
        return Tolm::eNullObjectId;
    }
    const Object* const object = Peek(id);
    if (object == nullptr) {
        return Tolm::eUnknownHandle;
    }
    if (object->IsErased()) {
        return Tolm::eWasErased;
    }
    if (const Layer* const record = dynamic_cast<const Layer*>(object)) {
        return record->IsExternal() ? Tolm::eNotAllowed : Tolm::eOk;
    }
    if (const Block* const record = dynamic_cast<const Block*>(object)) {
        return record->IsExternal() ? Tolm::eNotAllowed : Tolm::eOk;
    }
    const Entity* const entity = dynamic_cast<const Entity*>(object);
    if (entity == nullptr) {
        return Tolm::eOk;
    }
    const Layer* const layer = PeekAs<Layer>(entity->LayerId());
    if (layer != nullptr && (layer->IsLocked() || layer->IsExternal())) {
        return Tolm::eOnLockedLayer;
    }
    return dynamic_cast<const Attribute*>(object) != nullptr ? CanWrite(object->OwnerId()) : Tolm::eOk;
}

void Database::SetInWorkingSet(KvDbObjectId id, bool inWorkingSet) {
    if (KvDbStub* const stub = id.stub()) {
        stub->flags =
            inWorkingSet ? stub->flags | KVDB_STUB_IN_WORKING_SET : stub->flags & ~KVDB_STUB_IN_WORKING_SET;
    }
}

void Database::AddReactor(DatabaseReactor* reactor) {
    if (reactor != nullptr && std::find(m_reactors.begin(), m_reactors.end(), reactor) == m_reactors.end()) {
        m_reactors.push_back(reactor);
    }
}

void Database::RemoveReactor(DatabaseReactor* reactor) {
    std::erase(m_reactors, reactor);
}

}  // namespace kvhost
