#include "families/CKvPeButtonEdit.h"

CKvPeButtonEdit::CKvPeButtonEdit(CIPropEditUIEvents* events, CKvPeBasePrivate* shell)
    : CKvPeButtonEditBase(events, shell) {
    m_nButtonSide = ButtonSide_Right;
}

HRESULT CKvPeButtonEdit::PropertySysKeyDown(UINT key, UINT, UINT flags, bool& handled) {
    if (!IsDialogKey(key, flags)) {
        return S_OK;
    }
    bool hasButton = false;
    for (int index = 0; index < m_buttons.GetSize(); ++index) {
        hasButton = hasButton || (m_buttons[index] && m_buttons[index]->m_nId != 0);
    }
    if (hasButton && m_buttons[0]) {
        handled = true;
        return OnCustomButton(m_buttons[0]->m_nId);
    }
    return S_OK;
}

HRESULT CKvPeButtonEdit::Handle_Refresh() {
    RETURN_IF_FAILED_EXPECTED(ReadRowText());
    ShowText();
    return S_OK;
}

HRESULT CKvPeButtonEdit::OnCustomButton(WORD) {
    RunDialogAndGoOn();
    return S_OK;
}
