#include "refhost/editor/SelectionSets.h"

#include "refhost/db/Database.h"
#include "refhost/db/Entity.h"
#include "refhost/editor/DocumentManager.h"
#include "refhost/editor/Host.h"

namespace kvhost {

namespace {

/// First number of the name of a set; entities have the serial number of their database there.
constexpr long long c_setMark = -1;

}  // namespace

SelectionSets::SelectionSets() = default;
SelectionSets::~SelectionSets() = default;

void SelectionSets::Make(std::vector<KvDbObjectId> members, kved_name name) {
    ++m_lastNumber;
    m_sets.emplace(m_lastNumber, std::move(members));
    name[0] = c_setMark;
    name[1] = m_lastNumber;
}

std::vector<KvDbObjectId>* SelectionSets::Find(const kved_name name) {
    if (name == nullptr || name[0] != c_setMark) {
        return nullptr;
    }
    const auto found = m_sets.find(name[1]);
    return found != m_sets.end() ? &found->second : nullptr;
}

bool SelectionSets::Free(const kved_name name) {
    return name != nullptr && name[0] == c_setMark && m_sets.erase(name[1]) > 0;
}

void SelectionSets::NameOf(KvDbObjectId entity, kved_name name) {
    const Database* const database = Database::From(entity.database());
    name[0] = database != nullptr ? database->SerialNumber() : 0;
    name[1] = static_cast<long long>(entity.handle());
}

KvDbObjectId SelectionSets::EntityOf(const kved_name name) {
    Host* const host = Host::Current();
    if (host == nullptr || name == nullptr) {
        return {};
    }
    for (Document* const document : host->Documents().Documents()) {
        const Database& database = document->GetDatabase();
        if (database.SerialNumber() == name[0]) {
            const KvDbObjectId id = database.IdOf(static_cast<std::uint64_t>(name[1]));
            return Database::PeekAs<Entity>(id) != nullptr ? id : KvDbObjectId();
        }
    }
    return {};
}

}  // namespace kvhost
