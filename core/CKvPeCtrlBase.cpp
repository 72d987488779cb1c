#include "core/CKvPeCtrlBase.h"

#include "core/CKvPeBasePrivate.h"
#include "core/EditState.h"
#include "core/ModuleTexts.h"
#include "core/OleColors.h"

CKvPeCtrlBase::CKvPeCtrlBase(CIPropEditUIEvents* events, CKvPeBasePrivate* shell) {
    Initialize();
    m_events = events;
    m_private = shell;
    m_expressionState = 0;
}

CKvPeCtrlBase::~CKvPeCtrlBase() {
    // The call is bound here: the families' part of the object is gone.
    fw::Ignore(CKvPeCtrlBase::Cleanup());
}

HWND CKvPeCtrlBase::ControlWindow() const {
    const HWND* const window = m_private != nullptr ? m_private->GetControlWindowPtr() : nullptr;
    return window != nullptr ? *window : nullptr;
}

CString CKvPeCtrlBase::GetUnspecifiedString() const {
    return m_unspecifiedText;
}

HRESULT CKvPeCtrlBase::BeginEdit(const RECT&) {
    return S_OK;
}

HRESULT CKvPeCtrlBase::EndEdit() {
    SetTextTipOwner();
    return S_OK;
}

HRESULT CKvPeCtrlBase::SetState(int& state) {
    m_state = state;
    return S_OK;
}

HRESULT CKvPeCtrlBase::GetState(int& state) {
    state = m_state;
    return S_OK;
}

HRESULT CKvPeCtrlBase::MouseClick(UINT, CPoint) {
    return S_OK;
}

HRESULT CKvPeCtrlBase::DoubleClick(const RECT&) {
    return S_OK;
}

HRESULT CKvPeCtrlBase::PropertySysKeyDown(UINT, UINT, UINT, bool& handled) {
    handled = false;
    return S_OK;
}

HRESULT CKvPeCtrlBase::SetReadOnlyFlag(int readOnly) {
    m_readOnly = readOnly;
    return S_OK;
}

HRESULT CKvPeCtrlBase::PropReadOnly(int& readOnly) {
    readOnly = m_readOnly;
    return S_OK;
}

HRESULT CKvPeCtrlBase::EditBoxReadOnly(bool& readOnly) {
    readOnly = m_editBoxReadOnly;
    return S_OK;
}

HRESULT CKvPeCtrlBase::Handle_get_KeepFocus(short* keepFocus) {
    RETURN_IF_NULL_POINTER(keepFocus);
    *keepFocus = VARIANT_FALSE;
    return S_OK;
}

HRESULT CKvPeCtrlBase::Handle_Refresh() {
    return S_OK;
}

HRESULT CKvPeCtrlBase::SetDoNextVariantItem(int value) {
    m_doNextVariantItem = value;
    return S_OK;
}

HRESULT CKvPeCtrlBase::GetDoNextVariantItem(int& value) {
    value = m_doNextVariantItem;
    return S_OK;
}

HRESULT CKvPeCtrlBase::SetChangeNotified(int value) {
    m_changeNotified = value;
    return S_OK;
}

HRESULT CKvPeCtrlBase::GetChangeNotified(int& value) {
    value = m_changeNotified;
    return S_OK;
}

HRESULT CKvPeCtrlBase::Handle_PutPropertyIdentifier(IKvPiPropertyIdentifier* identifier) {
    // Deliberate: an earlier identifier is not released. Palettes give one per row and may drop theirs first.
    fw::Ignore(m_propertyIdentifier.Detach());
    m_propertyIdentifier = identifier;
    return S_OK;
}

HRESULT CKvPeCtrlBase::Handle_GetPropertyIdentifier(IKvPiPropertyIdentifier** identifier) {
    RETURN_IF_NULL_POINTER(identifier);
    return m_propertyIdentifier.CopyTo(identifier);
}

// Window verbs

HRESULT CKvPeCtrlBase::Handle_SetObjectRects(const RECT*, const RECT*) {
    return S_OK;
}

HRESULT CKvPeCtrlBase::Handle_DoVerbHide() {
    if (!m_keepEditOnHide && m_state >= EditState_InEdit) {
        // A refused commit was told to the user; the row is hidden all the same.
        fw::Ignore(EndEdit());
        m_state = EditState_Shown;
    }
    return S_OK;
}

HRESULT CKvPeCtrlBase::Handle_DoVerbShow() {
    return S_OK;
}

HRESULT CKvPeCtrlBase::Handle_DoVerbUIActivate(const RECT* bounds) {
    RETURN_IF_NULL_POINTER(bounds);
    const RECT copy = *bounds;
    return BeginEdit(copy);
}

HRESULT CKvPeCtrlBase::Handle_UIDeactivate() {
    if (m_state >= EditState_InEdit) {
        // A refused commit was told to the user; the row is left all the same.
        fw::Ignore(EndEdit());
    }
    m_state = EditState_Shown;
    return S_OK;
}

void CKvPeCtrlBase::Initialize() {
    m_state = EditState_NeverShown;
    LoadValueTexts();
    m_foreColor = 0;
    m_backColor = SystemOleColor(COLOR_WINDOW);
    m_readOnlyForeColor = 0;
    m_readOnlyBackColor = SystemOleColor(COLOR_WINDOW);
    m_backBrush = SolidBrush(m_backColor);
    m_readOnlyBackBrush = SolidBrush(m_readOnlyBackColor);
}
