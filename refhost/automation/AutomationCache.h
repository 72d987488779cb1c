#pragma once

#include <map>
#include <unordered_map>

#include "refhost/automation/AutomationObject.h"
#include "refhost/db/DatabaseReactor.h"

namespace kvhost {

/// Knows the automation objects of each open database, so that one object has one, without keeping them
/// alive. When a database goes it tells those of its objects that are still held.
class AutomationCache final : public DatabaseReactor {
public:
    [[nodiscard]] static AutomationCache& Instance();

    /// Null when the object has none now.
    [[nodiscard]] AutomationObject* Find(KvDbObjectId id) const;
    void Add(KvDbObjectId id, AutomationObject* object);
    void Remove(KvDbObjectId id);

    // DatabaseReactor
    void DatabaseGone(const Database& database) override;

private:
    using Objects = std::unordered_map<KvDbStub*, AutomationObject*>;
    std::map<const Database*, Objects> m_databases;
};

}  // namespace kvhost
