#include "core/EditState.h"
#include "families/CKvPeEditBase.h"
#include "framework/com/Guarded.h"
#include "framework/com/Variant.h"

HRESULT CKvPeEditBase::EndEdit() {
    RETURN_HR_IF(E_FAIL, !IsInEdit() || !HasEditWindow() || m_state == EditState_Committing);
    const CString formerText = m_text;
    const CString entered = m_edit->GetWindowText();
    // Case counts here, although two objects whose texts differ only in case share one value.
    if (entered == formerText || IsReadOnlyRow() || m_edit->IsReadOnly()) {
        SetTextTipOwner();
        return S_OK;
    }
    m_text = entered;
    Commit(formerText);
    return S_OK;
}

ValueType CKvPeEditBase::TypeOfEnteredText() const {
    const bool isUnspecified = m_allowUnspecified && m_text.CompareNoCase(m_unspecifiedText) == 0;
    return isUnspecified ? ValueType_Unspecified : ValueType_Specific;
}

void CKvPeEditBase::Commit(const CString& formerText) {
    fw::Variant value = fw::Variant::FromString(m_text.View());
    m_state = EditState_Committing;
    // What the host throws is a refusal like any other: the row stays in edit, with its former text.
    const HRESULT written =
        fw::Guarded([&] { return SetPropertyValue(value.Address(), TypeOfEnteredText()); });
    if (FAILED(written)) {
        m_text = formerText;
        if (HasEditWindow()) {
            m_edit->SetWindowText(m_text);
        }
        ::UpdateWindow(ControlWindow());
    } else {
        m_changeNotified = TRUE;
        fw::Ignore(
            fw::Guarded([&] { return Handle_Refresh(); }));  // a failed read leaves the text that was entered
    }
    SetTextTipOwner();
    // The palette may have taken the row out of edit meanwhile.
    if (m_state == EditState_Committing) {
        m_state = EditState_InEdit;
    }
}

void CKvPeEditBase::ChooseText(const RECT& bounds, const CString& text) {
    if (SUCCEEDED(BeginEdit(bounds)) && HasEditWindow()) {
        m_edit->SetWindowText(text);
        fw::Ignore(EndEdit());  // a refused text was told to the user
    }
}
