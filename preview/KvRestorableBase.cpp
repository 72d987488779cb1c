#include "preview/KvRestorableBase.h"

#include <cassert>

KvRestorableBase::~KvRestorableBase() {
    assert(m_bDone);
}

void KvRestorableBase::Restore() {
    if (!m_bDone) {
        DoRestore();
        m_bDone = true;
    }
}

void KvRestorableBase::Discard() {
    m_bDone = true;
}
