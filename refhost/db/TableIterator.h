#pragma once

#include <vector>

#include "host_sdk/KvDbSymbolTable.h"

namespace kvhost {

/// Walks the records that a table had when the walk began, with journal and faults.
class TableIterator final : public KvDbSymbolTableIterator {
public:
    TableIterator(std::vector<KvDbObjectId> records, bool atBeginning, bool skipDeleted);

    // KvDbSymbolTableIterator
    [[nodiscard]] bool done() const override;
    [[nodiscard]] Tolm::ErrorStatus getRecordId(KvDbObjectId& id) const override;
    void step(bool forward, bool skipDeleted) override;

private:
    [[nodiscard]] bool IsDone() const { return m_position >= m_records.size(); }
    void SkipDeleted(bool forward);

    std::vector<KvDbObjectId> m_records;
    std::size_t m_position;  // one before the first is as far out as one behind the last
};

}  // namespace kvhost
