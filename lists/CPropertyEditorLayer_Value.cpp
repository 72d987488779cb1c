// The row's value: from the objects to an entry and back.
#include "core/ModelessMarks.h"
#include "core/ModuleTexts.h"
#include "framework/com/Guarded.h"
#include "framework/com/Variant.h"
#include "host_sdk/KvDbLayerTable.h"
#include "host_sdk/KvDbObjectPointer.h"
#include "host_sdk/KvEdServices.h"
#include "lists/CComboLayer.h"
#include "lists/COwnerDrawItemLayer.h"
#include "lists/CPropertyEditorLayer.h"

namespace {

/// The layer of that name, open for read in the scope of the pointer; without object when there is none.
void OpenLayer(const KvDbLayerTable& table, const wchar_t* name,
               KvDbObjectPointer<KvDbLayerTableRecord>& layer) {
    KvDbLayerTableRecord* record = nullptr;
    static_cast<void>(table.getAt(name, record, KvDb::kForRead));  // the record tells
    layer.acquire(record);
}

}  // namespace

int CPropertyEditorLayer::GetCurrentItem() {
    if (FAILED(EnsureComboWindow())) {
        return -1;
    }
    if (!m_pComboList->m_bFilled) {
        fw::Ignore(FillList());  // an empty list has no entry for the value
    }
    fw::Variant value;
    ValueType state = ValueType_Specific;
    if (FAILED(GetPropertyValue(value.Put(), state))) {
        return -1;
    }
    m_valueState = state;
    SyncStateItems();
    switch (state) {
        case ValueType_Varies:
            return m_pComboList->FindStringExact(-1, VariesText());
        case ValueType_Unspecified:
            return m_pComboList->FindStringExact(-1, m_unspecifiedText);
        default:
            return FindValue(value.Get());
    }
}

int CPropertyEditorLayer::FindValue(const VARIANT& value) {
    if (value.vt != VT_BSTR) {
        return -1;
    }
    const CString name(value.bstrVal);
    RefreshViewportOverride(name);
    return m_layerList->FindItem(name);
}

void CPropertyEditorLayer::RefreshViewportOverride(const wchar_t* name) {
    if (!m_tableId.isValid()) {
        return;
    }
    const KvDbObjectPointer<KvDbLayerTable> table(m_tableId);
    if (!table) {
        return;
    }
    KvDbObjectPointer<KvDbLayerTableRecord> layer;
    OpenLayer(*table.object(), name, layer);
    const int index = layer ? m_layerList->FindItem(name) : -1;
    if (COwnerDrawItemLayer* const item = index >= 0 ? ItemAt(index) : nullptr) {
        item->hasViewportOverride = HasOverrideInCurrentViewport(*layer.object());
    }
}

bool CPropertyEditorLayer::NeedsLayerBracket(const wchar_t* name) const {
    const KvDbObjectPointer<KvDbLayerTable> table(m_tableId);
    if (!table) {
        return false;
    }
    KvDbObjectPointer<KvDbLayerTableRecord> layer;
    OpenLayer(*table.object(), name, layer);
    return layer && (layer->isFrozen() || layer->isOff());
}

HRESULT CPropertyEditorLayer::SetSelectedItem(int index) {
    RETURN_HR_IF(E_FAIL, index < 0 || !m_tableId.isValid() || !HasContainerList());
    const COwnerDrawItemLayer* const item = ItemAt(index);
    RETURN_HR_IF(E_FAIL, item == nullptr || item->disabled);
    const CString name = item->name;  // the write may fill the list anew
    const bool bracket = NeedsLayerBracket(name);
    if (bracket && !kvedIsLivePreviewRecording()) {
        kvedSendModelessOperationStart(KVPE_MARK_CHANGE_LAYER);
    }
    ValueType type = ValueType_Specific;
    if (!name.IsEmpty()) {
        if (name == m_unspecifiedText) {
            type = ValueType_Unspecified;
        } else if (name == VariesText()) {
            return E_FAIL;  // names no layer, so that no bracket is open
        }
    }
    const HRESULT written =
        fw::Guarded([&] { return Write(name, type); });  // the bracket is closed in any case
    if (bracket && !kvedIsLivePreviewRecording()) {
        kvedSendModelessOperationEnded(KVPE_MARK_CHANGE_LAYER);
    }
    return written;
}

HRESULT CPropertyEditorLayer::Write(const CString& name, ValueType type) {
    fw::Variant value = fw::Variant::FromString(name.View());
    const HRESULT written = SetPropertyValue(value.Address(), type);
    if (SUCCEEDED(written) && !kvedIsLivePreviewRecording()) {
        m_valueState = type;
    }
    return written;
}
