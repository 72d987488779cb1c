#pragma once

#include "families/CComboOwnerDraw.h"
#include "host_sdk/KvDbObjectId.h"
#include "lists/KvDbLayerReactor.h"

class KvDbDatabase;

/// The drop-down window of a layer row. It hears of changes of the layer table and is stale from then on.
class CComboLayer final : public CComboOwnerDraw {
public:
    /// `database` is the host's; null for a list without table.
    explicit CComboLayer(KvDbDatabase* database);
    ~CComboLayer() override;

    /// The first entry whose text is exactly `name`, letter case included; -1 when there is none.
    [[nodiscard]] virtual int FindItem(const wchar_t* name) const;

private:
    KvDbLayerReactor m_reactor;
    KvDbObjectId m_layerTableId;
};
