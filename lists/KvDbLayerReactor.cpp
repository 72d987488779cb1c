#include "lists/KvDbLayerReactor.h"

#include "families/CComboOwnerDraw.h"

void KvDbLayerReactor::onWatchedObjectGone(const KvDbObject*) {
    m_pCombo = nullptr;
}

void KvDbLayerReactor::onWatchedObjectModified(const KvDbObject*) {
    if (m_pCombo != nullptr) {
        m_pCombo->m_bFilled = false;
    }
}
