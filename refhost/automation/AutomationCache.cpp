#include "refhost/automation/AutomationCache.h"

#include "framework/com/CComObject.h"
#include "refhost/automation/GroupedAutomationObject.h"
#include "refhost/automation/PropertyRows.h"
#include "refhost/automation/PropertyTable.h"
#include "refhost/db/Database.h"
#include "refhost/db/Entity.h"

namespace kvhost {

AutomationCache& AutomationCache::Instance() {
    static AutomationCache cache;
    return cache;
}

AutomationObject* AutomationCache::Find(KvDbObjectId id) const {
    const auto objects = m_databases.find(Database::From(id.database()));
    if (objects == m_databases.end()) {
        return nullptr;
    }
    const auto found = objects->second.find(id.stub());
    return found == objects->second.end() ? nullptr : found->second;
}

void AutomationCache::Add(KvDbObjectId id, AutomationObject* object) {
    Database* const database = Database::From(id.database());
    const auto [objects, isNew] = m_databases.try_emplace(database);
    if (isNew) {
        database->AddReactor(this);
    }
    objects->second[id.stub()] = object;
}

void AutomationCache::Remove(KvDbObjectId id) {
    Database* const database = Database::From(id.database());
    const auto objects = m_databases.find(database);
    if (objects == m_databases.end()) {
        return;
    }
    objects->second.erase(id.stub());
    if (objects->second.empty()) {
        database->RemoveReactor(this);
        m_databases.erase(objects);
    }
}

void AutomationCache::DatabaseGone(const Database& database) {
    const auto objects = m_databases.find(&database);
    if (objects == m_databases.end()) {
        return;
    }
    for (const auto& [stub, object] : objects->second) {
        object->Orphan();
    }
    m_databases.erase(objects);
}

namespace {

template <class Class>
HRESULT MakeObject(KvDbObjectId id, const PropertyTable& table, IDispatch** object) {
    CComObject<Class>* made = nullptr;
    RETURN_IF_FAILED(CComObject<Class>::CreateInstance(nullptr, &made));
    made->Attach(id, table);
    *object = made;
    return S_OK;
}

}  // namespace

HRESULT GetAutomationObject(KvDbObjectId id, IDispatch** object) {
    RETURN_IF_NULL_POINTER(object);
    *object = nullptr;
    if (AutomationObject* const known = AutomationCache::Instance().Find(id)) {
        return fw::ComPtr<IDispatch>(known).CopyTo(object);
    }
    const Object* const subject = Database::Peek(id);
    const PropertyTable* const table = subject != nullptr ? PropertyTable::Of(subject->ClassName()) : nullptr;
    RETURN_HR_IF(E_INVALIDARG, table == nullptr);
    if (GroupedAutomationObject::IsNeededFor(*table)) {
        return MakeObject<GroupedAutomationObject>(id, *table, object);
    }
    return dynamic_cast<const Entity*>(subject) != nullptr
               ? MakeObject<GraphicalAutomationObject>(id, *table, object)
               : MakeObject<AutomationObject>(id, *table, object);
}

}  // namespace kvhost
