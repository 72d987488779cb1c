#include "preview/KvRestorableSet.h"

#include <utility>

KvRestorableSet::KvRestorableSet() = default;

KvRestorableSet::~KvRestorableSet() {
    for (const std::unique_ptr<IKvRestorable>& restorable : m_restorables) {
        restorable->Discard();
    }
}

void KvRestorableSet::Add(std::unique_ptr<IKvRestorable> restorable) {
    if (restorable) {
        m_restorables.insert(std::move(restorable));
    }
}

void KvRestorableSet::RestoreAll() {
    while (!m_restorables.empty()) {
        const auto taken = m_restorables.extract(m_restorables.begin());
        taken.value()->Restore();
    }
}
