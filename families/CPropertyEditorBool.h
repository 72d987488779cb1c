#pragma once

#include "families/CKvPeComboBase.h"

/// A list row over a truth: two entries, whose texts the property may name itself, and where they apply one
/// for the unspecified value and one for values that differ.
class CPropertyEditorBool : public CKvPeComboBase {
public:
    using CKvPeComboBase::CKvPeComboBase;

    // CKvPeComboBase
    /// E_FAIL without the window.
    HRESULT FillList() override;
    HRESULT SetSelectedItem(int index) override;
    CString GetItemText(int index) override;
    int GetCurrentItem() override;

private:
    void LoadTexts();
    bool LoadNamesOfProperty();
    bool LoadStringsOfObject();
    void SyncUnspecifiedItem();
    void SyncVariesItem(ValueType type);
    void AddRow(int& item, int index);
    void RemoveRow(int& item);
    [[nodiscard]] bool ChangesConstraintForm() const;

    CString m_strTrue;
    CString m_strFalse;
    int m_nUnspecifiedItem = -1;
    int m_nVariesItem = -1;
};
