#pragma once

#include "families/CKvPeSymbolTableBase.h"

class CComboLayer;
class COwnerDrawItemLayer;
class KvDbLayerTableRecord;
class StateEntries;

/// The row for an object's layer: a list of all layers of the drawing by their names. It writes the name of
/// the layer that is chosen.
class CPropertyEditorLayer : public CKvPeSymbolTableBase {
public:
    CPropertyEditorLayer(CIPropEditUIEvents* events, CKvPeBasePrivate* shell);
    ~CPropertyEditorLayer() override;

    // CKvPeCtrlBase
    HRESULT Cleanup() override;
    /// Reads the table anew at each opening. -1 when it can't be read.
    HRESULT BeginEdit(const RECT& bounds) override;

    // CKvPeComboBase
    HRESULT CreateComboWindow(const RECT& bounds) override;
    /// E_FAIL, without a write, for a layer that can't be chosen and for the entry of differing values.
    HRESULT SetSelectedItem(int index) override;
    int GetCurrentItem() override;

    // CKvPeSymbolTableBase
    HRESULT AddRecordItem(KvDbSymbolTableRecord* record) override;

private:
    [[nodiscard]] HRESULT EnsureComboWindow();
    void SyncStateItems();
    [[nodiscard]] int FindValue(const VARIANT& value);
    void RefreshViewportOverride(const wchar_t* name);
    [[nodiscard]] bool NeedsLayerBracket(const wchar_t* name) const;
    [[nodiscard]] HRESULT Write(const CString& name, ValueType type);
    [[nodiscard]] COwnerDrawItemLayer* ItemAt(int index) const;
    [[nodiscard]] std::unique_ptr<COwnerDrawItemLayer> MakeItem();
    [[nodiscard]] static bool HasOverrideInCurrentViewport(const KvDbLayerTableRecord& layer);

    CComboLayer* m_layerList = nullptr;  // m_pList by its own class
    ValueType m_valueState = ValueType_Specific;
};
