#include "refhost/db/TableIterator.h"

#include "refhost/db/Database.h"
#include "refhost/testing/ServiceCall.h"

namespace kvhost {

TableIterator::TableIterator(std::vector<KvDbObjectId> records, bool atBeginning, bool skipDeleted)
    : m_records(std::move(records)), m_position(atBeginning ? 0 : m_records.size() - 1) {
    if (skipDeleted) {
        SkipDeleted(atBeginning);
    }
}

bool TableIterator::done() const {
    ServiceCall call(L"done");
    return call.Returns(call.Fails() || IsDone());
}

Tolm::ErrorStatus TableIterator::getRecordId(KvDbObjectId& id) const {
    ServiceCall call(L"getRecordId");
    id = {};
    if (call.Fails() || IsDone()) {
        return call.Returns(Tolm::eInvalidInput);
    }
    id = m_records[m_position];
    return call.Returns(Tolm::eOk);
}

// Steps even when it is told to fail: it has no way to say so, and a walk that stands still never ends.
void TableIterator::step(bool forward, bool skipDeleted) {
    const ServiceCall call(L"step", forward, skipDeleted);
    if (IsDone()) {
        return;
    }
    forward ? ++m_position : --m_position;
    if (skipDeleted) {
        SkipDeleted(forward);
    }
}

void TableIterator::SkipDeleted(bool forward) {
    while (!IsDone() && Database::Peek(m_records[m_position])->IsErased()) {
        forward ? ++m_position : --m_position;
    }
}

}  // namespace kvhost
