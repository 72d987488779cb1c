#pragma once

#include <cstddef>
#include <map>
#include <vector>

#include "host_sdk/KvDbObjectId.h"
#include "host_sdk/ResultBuffer.h"

namespace kvhost {

/// The selection sets that modules made or were given, by their names, and the names of entities.
class KVHOST_API SelectionSets {
public:
    SelectionSets();
    SelectionSets(const SelectionSets&) = delete;
    SelectionSets& operator=(const SelectionSets&) = delete;
    ~SelectionSets();

    /// Makes a set and writes its name.
    void Make(std::vector<KvDbObjectId> members, kved_name name);
    /// Null when `name` is no set, or one that was freed. Owned here.
    [[nodiscard]] std::vector<KvDbObjectId>* Find(const kved_name name);
    [[nodiscard]] bool Free(const kved_name name);
    /// Sets that were not freed.
    [[nodiscard]] std::size_t Count() const { return m_sets.size(); }

    static void NameOf(KvDbObjectId entity, kved_name name);
    /// Null id when `name` is no entity of an open document.
    [[nodiscard]] static KvDbObjectId EntityOf(const kved_name name);

private:
    std::map<long long, std::vector<KvDbObjectId>> m_sets;
    long long m_lastNumber = 0;
};

}  // namespace kvhost
