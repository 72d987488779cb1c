#include "refhost/editor/Selection.h"

#include <algorithm>
#include <unordered_set>

#include "refhost/db/Database.h"
#include "refhost/db/Entity.h"
#include "refhost/db/NameRules.h"
#include "refhost/editor/Host.h"
#include "refhost/editor/SelectionObserver.h"
#include "refhost/editor/SystemVariables.h"

namespace kvhost {

namespace {

constexpr std::size_t c_longestHandle = 16;

int Variable(const wchar_t* name) {
    Host* const host = Host::Current();
    return host != nullptr ? host->Variables().Integer(name) : 0;
}

/// The text after `prefix`, letter case apart; null when the text begins otherwise.
const wchar_t* After(std::wstring_view text, std::wstring_view prefix) {
    return SameName(text.substr(0, prefix.size()), prefix) ? text.data() + prefix.size() : nullptr;
}

bool ReadHandle(std::wstring_view text, std::uint64_t& handle) {
    handle = 0;
    if (text.empty() || text.size() > c_longestHandle) {
        return false;
    }
    for (const wchar_t digit : text) {
        if (digit >= L'0' && digit <= L'9') {
            handle = handle * 16 + static_cast<std::uint64_t>(digit - L'0');
        } else if ((digit | 32) >= L'a' && (digit | 32) <= L'f') {
            handle = handle * 16 + static_cast<std::uint64_t>((digit | 32) - L'a' + 10);
        } else {
            return false;
        }
    }
    return true;
}

std::vector<KvDbObjectId> FindHandles(const Database& database, std::wstring_view list, std::wstring& error) {
    std::vector<KvDbObjectId> ids;
    while (!list.empty()) {
        const std::size_t comma = std::min(list.find(L','), list.size());
        const std::wstring_view text = list.substr(0, comma);
        list.remove_prefix(std::min(comma + 1, list.size()));
        std::uint64_t handle = 0;
        if (!ReadHandle(text, handle)) {
            error =
                L"'" + std::wstring(text) + L"' is no selection: use all, none, handles, class= or layer=.";
            return {};
        }
        const KvDbObjectId id = database.IdOf(handle);
        const Entity* const entity = Database::PeekAs<Entity>(id);
        if (entity == nullptr || entity->IsErased()) {
            error = L"The drawing has no entity with the handle " + std::wstring(text) + L".";
            return {};
        }
        ids.push_back(id);
    }
    return ids;
}

template <class Condition>
std::vector<KvDbObjectId> FindInModelSpace(const Database& database, const Condition& condition) {
    std::vector<KvDbObjectId> ids = database.ModelSpaceEntities();
    std::erase_if(ids, [&](KvDbObjectId id) { return !condition(*Database::PeekAs<Entity>(id)); });
    return ids;
}

}  // namespace

Selection::Selection(Database& database) : m_database(database) {
}
Selection::~Selection() = default;

std::vector<KvDbObjectId> Selection::Cleaned(const std::vector<KvDbObjectId>& ids) const {
    std::vector<KvDbObjectId> cleaned;
    std::unordered_set<KvDbStub*> known;
    for (const KvDbObjectId id : ids) {
        const Entity* const entity = Database::PeekAs<Entity>(id);
        if (entity != nullptr && !entity->IsErased() && id.database() == &m_database &&
            known.insert(id.stub()).second) {
            cleaned.push_back(id);
        }
    }
    return cleaned;
}

std::vector<KvDbObjectId> Selection::PickFirst() const {
    return Cleaned(m_pickFirst);
}

std::vector<KvDbObjectId> Selection::Gripped() const {
    return Cleaned(m_gripped);
}

void Selection::ComputeGrips(const std::vector<KvDbObjectId>& ids) {
    m_gripped.clear();
    if (Variable(L"GRIPS") != 0) {
        m_gripped = ids;
        m_gripComputations += ids.size();
    }
}

void Selection::Pick(const std::vector<KvDbObjectId>& ids) {
    m_pickFirst = Cleaned(ids);
    const int limit = Variable(L"GRIPOBJLIMIT");
    const bool isAboveLimit = limit > 0 && m_pickFirst.size() > static_cast<std::size_t>(limit);
    ComputeGrips(isAboveLimit ? std::vector<KvDbObjectId>() : m_pickFirst);
    NotifyChanged();
}

void Selection::Set(const std::vector<KvDbObjectId>& gripSet, const std::vector<KvDbObjectId>& pickFirst) {
    m_pickFirst = Cleaned(pickFirst);
    ComputeGrips(Cleaned(gripSet));
    NotifyChanged();
}

std::vector<KvDbObjectId> Selection::Find(std::wstring_view criterion, std::wstring& error) const {
    error.clear();
    if (SameName(criterion, L"all")) {
        return m_database.ModelSpaceEntities();
    }
    if (SameName(criterion, L"none")) {
        return {};
    }
    std::vector<KvDbObjectId> ids;
    if (const wchar_t* const name = After(criterion, L"class=")) {
        const std::wstring className(name, criterion.data() + criterion.size());
        ids = FindInModelSpace(m_database,
                               [&](const Entity& entity) { return SameName(entity.ClassName(), className); });
        error = ids.empty() ? L"The drawing has no objects of the class '" + className + L"'." : L"";
    } else if (const wchar_t* const layer = After(criterion, L"layer=")) {
        const std::wstring layerName(layer, criterion.data() + criterion.size());
        const KvDbObjectId layerId = m_database.LayerNamed(layerName);
        ids = FindInModelSpace(m_database, [&](const Entity& entity) { return entity.LayerId() == layerId; });
        if (layerId.isNull()) {
            error = L"The drawing has no layer '" + layerName + L"'.";
        } else if (ids.empty()) {
            error = L"The layer '" + layerName + L"' has no objects.";
        }
    } else if (criterion.empty()) {
        error = L"A selection is needed: all, none, handles, class= or layer=.";
    } else {
        ids = FindHandles(m_database, criterion, error);
    }
    return ids;
}

std::wstring Selection::Select(std::wstring_view criterion) {
    std::wstring error;
    std::vector<KvDbObjectId> ids = Find(criterion, error);
    if (!error.empty()) {
        return error;
    }
    if (!SameName(criterion, L"none")) {
        ids.insert(ids.begin(), m_pickFirst.begin(), m_pickFirst.end());
    }
    Pick(ids);
    return {};
}

void Selection::AddObserver(SelectionObserver* observer) {
    if (observer != nullptr &&
        std::find(m_observers.begin(), m_observers.end(), observer) == m_observers.end()) {
        m_observers.push_back(observer);
    }
}

void Selection::RemoveObserver(SelectionObserver* observer) {
    std::erase(m_observers, observer);
}

void Selection::NotifyChanged() {
    const std::vector<SelectionObserver*> observers = m_observers;
    for (SelectionObserver* const observer : observers) {
        if (std::find(m_observers.begin(), m_observers.end(), observer) != m_observers.end()) {
            observer->SelectionChanged(*this);
        }
    }
}

}  // namespace kvhost
