#pragma once

#include "host_sdk/KvDbObjectReactor.h"

class CComboOwnerDraw;

/// Marks a layer list as stale when the layer table changes. The list is filled again when it is next read or
/// opened; what is on the screen stays until then. Part of its list.
class KvDbLayerReactor final : public KvDbObjectReactor {
public:
    explicit KvDbLayerReactor(CComboOwnerDraw* combo) : m_pCombo(combo) {}

    /// The table is still there, so that the reactor is to be taken off it.
    [[nodiscard]] bool IsWatching() const { return m_pCombo != nullptr; }

    // KvDbObjectReactor
    void onWatchedObjectGone(const KvDbObject* object) override;
    void onWatchedObjectModified(const KvDbObject* object) override;

private:
    CComboOwnerDraw* m_pCombo;  // the list that this is a part of; null once the table is gone
};
