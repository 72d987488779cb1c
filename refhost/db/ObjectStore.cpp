#include "refhost/db/ObjectStore.h"

#include <algorithm>

#include "refhost/db/Block.h"
#include "refhost/db/Database.h"
#include "refhost/db/Layer.h"
#include "refhost/db/NameRules.h"

namespace kvhost {

namespace {

using RetiredSlots = std::vector<std::unique_ptr<std::deque<ObjectStore::Slot>>>;

bool g_keepRetired = false;

RetiredSlots& Retired() {
    static RetiredSlots s_retired;
    return s_retired;
}

bool HasLowerHandle(const KvDbStub* left, const KvDbStub* right) {
    return left->handle < right->handle;
}

}  // namespace

ObjectStore::~ObjectStore() {
    for (Slot& slot : *m_slots) {
        slot.database = nullptr;
        slot.object.reset();
        slot.owned.clear();
    }
    if (g_keepRetired) {
        Retired().push_back(std::move(m_slots));
    }
}

void ObjectStore::KeepRetiredStubs(bool keep) {
    g_keepRetired = keep;
    if (!keep) {
        Retired().clear();
    }
}

KvDbStub* ObjectStore::Find(std::uint64_t handle) const {
    const auto found = m_byHandle.find(handle);
    return found != m_byHandle.end() ? found->second : nullptr;
}

Object* ObjectStore::ObjectOf(KvDbObjectId id) {
    const Database* const database = Database::From(id.database());
    // A stub that a plug-in made up is none of ours, whatever it claims.
    if (database == nullptr || database->m_store->Find(id.handle()) != id.stub()) {
        return nullptr;
    }
    return static_cast<Slot*>(id.stub())->object.get();
}

KvDbStub* ObjectStore::Add(std::unique_ptr<Object> object, std::uint64_t handle, KvDbStub* owner) {
    Slot& slot = m_slots->emplace_back();
    slot.database = &m_database;
    slot.handle = handle;
    slot.flags = 0;
    object->m_stub = &slot;
    object->m_owner = owner;
    object->m_database = &m_database;
    slot.object = std::move(object);
    m_byHandle.emplace(handle, &slot);
    m_nextHandle = std::max(m_nextHandle, handle + 1);
    if (owner != nullptr) {
        std::vector<KvDbStub*>& owned = static_cast<Slot*>(owner)->owned;
        owned.insert(std::upper_bound(owned.begin(), owned.end(), &slot, HasLowerHandle), &slot);
    }
    if (m_namesKnown) {
        LearnName(&slot);
    }
    return &slot;
}

KvDbStub* ObjectStore::FindNamed(SymbolKind kind, std::wstring_view name) const {
    if (!m_namesKnown) {
        LearnNames();
    }
    const Names& names = kind == SymbolKind::Layer ? m_layers : m_blocks;
    const auto found = names.find(FoldName(name));
    return found != names.end() ? found->second : nullptr;
}

void ObjectStore::LearnNames() const {
    m_layers.clear();
    m_blocks.clear();
    for (Slot& slot : *m_slots) {
        LearnName(&slot);
    }
    m_namesKnown = true;
}

void ObjectStore::LearnName(KvDbStub* stub) const {
    const Object* const object = static_cast<Slot*>(stub)->object.get();
    if (object->IsErased()) {
        return;
    }
    if (const Layer* const layer = dynamic_cast<const Layer*>(object)) {
        m_layers.emplace(FoldName(layer->Name()), stub);
    } else if (const Block* const block = dynamic_cast<const Block*>(object)) {
        m_blocks.emplace(FoldName(block->Name()), stub);
    }
}

}  // namespace kvhost
