#include "refhost/db/WorkingSet.h"

#include <utility>

#include "refhost/testing/ServiceCall.h"

namespace kvhost {

namespace {

ArrayEditTransaction* g_activeTransaction = nullptr;
bool g_progressMeterEnabled = true;

}  // namespace

KvDbGlobals& DefaultGlobals() {
    static KvDbGlobals s_globals;
    return s_globals;
}

ArrayEditTransaction::ArrayEditTransaction(KvArray<KvDbObjectId> workSet)
    : m_workSet(std::move(workSet)), m_previous(std::exchange(g_activeTransaction, this)) {
}

ArrayEditTransaction::~ArrayEditTransaction() {
    g_activeTransaction = m_previous;
}

void ArrayEditTransaction::workSet(KvArray<KvDbObjectId>& ids) const {
    ServiceCall call(L"workSet");
    if (!call.Fails()) {
        for (const KvDbObjectId id : m_workSet) {
            ids.append(id);
        }
    }
    call.Returns(!call.Fails());
}

bool IsProgressMeterEnabled() {
    return g_progressMeterEnabled;
}

}  // namespace kvhost

const KvDbGlobals* kvdbDefaultGlobals() {
    const kvhost::ServiceCall call(L"kvdbDefaultGlobals");
    return &kvhost::DefaultGlobals();
}

KvDbAssocArrayEditTransaction* KvDbAssocArrayEditTransaction::getActiveTransaction() {
    kvhost::ServiceCall call(L"getActiveTransaction");
    KvDbAssocArrayEditTransaction* const active = call.Fails() ? nullptr : kvhost::g_activeTransaction;
    call.Returns(active != nullptr);
    return active;
}

void KvDbAssocManager::enableProgressMeter(bool enable, const KvString& text) {
    if (text.IsEmpty()) {
        const kvhost::ServiceCall call(L"enableProgressMeter", enable);
    } else {
        const kvhost::ServiceCall call(L"enableProgressMeter", enable, text.GetString());
    }
    kvhost::g_progressMeterEnabled = enable;
}
