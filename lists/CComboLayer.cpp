#include "lists/CComboLayer.h"

#include "host_sdk/KvDbDatabase.h"
#include "host_sdk/KvDbObjectPointer.h"
#include "host_sdk/KvDbSymbolTable.h"

CComboLayer::CComboLayer(KvDbDatabase* database) : m_reactor(this) {
    if (database != nullptr) {
        m_layerTableId = database->layerTableId();
    }
    if (const KvDbObjectPointer<KvDbSymbolTable> table(m_layerTableId); table) {
        static_cast<void>(table->addReactor(&m_reactor));  // without it the list is only read more often
    }
}

CComboLayer::~CComboLayer() {
    if (m_reactor.IsWatching()) {
        if (const KvDbObjectPointer<KvDbSymbolTable> table(m_layerTableId); table) {
            static_cast<void>(table->removeReactor(&m_reactor));  // it may never have come on
        }
    }
    DestroyWindow();
}

// Deliberate: letter case counts here, while lists of linetypes look without it.
int CComboLayer::FindItem(const wchar_t* name) const {
    // The window finds without regard to case, and fast; among its finds the exact one is looked for.
    int before = -1;
    for (int found = FindStringExact(before, name); found > before; found = FindStringExact(before, name)) {
        if (GetLBText(found) == name) {
            return found;
        }
        before = found;
    }
    return -1;
}
