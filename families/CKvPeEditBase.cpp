#include "families/CKvPeEditBase.h"

#include "core/CIPropEditUIEvents.h"
#include "core/ChildIds.h"
#include "core/EditState.h"
#include "core/ModuleTexts.h"
#include "framework/com/Variant.h"

namespace {

constexpr DWORD c_editStyle = WS_CHILD | WS_TABSTOP | ES_AUTOHSCROLL | ES_MULTILINE;
constexpr DWORD c_presetStyle = WS_CHILD;

}  // namespace

CKvPeEditBase::CKvPeEditBase(CIPropEditUIEvents* events, CKvPeBasePrivate* shell)
    : CKvPeCtrlBase(events, shell) {
    SetFamilyRole(this);
}

CKvPeEditBase::~CKvPeEditBase() {
    DropEdit();
}

HRESULT CKvPeEditBase::Cleanup() {
    DropEdit();
    return CKvPeCtrlBase::Cleanup();
}

void CKvPeEditBase::KeepEdit(std::unique_ptr<CEditEx> edit) {
    DropEdit();
    m_edit = std::move(edit);
    m_childWindow = m_edit.get();
    // The edit that ran in another box has gone with it, as with the container's window. In the new one
    // nothing was entered that could be committed.
    if (IsInEdit()) {
        m_state = EditState_Shown;
    }
}

void CKvPeEditBase::DropEdit() {
    // Out of the row first: the box may lose the focus as it ends, and a row without a box commits nothing.
    const std::unique_ptr<CEditEx> edit = std::move(m_edit);
    m_childWindow = nullptr;
    if (edit && edit->IsWindow()) {
        edit->DestroyWindow();
    }
}

HRESULT CKvPeEditBase::ReadText(CString& text, ValueType& type) {
    fw::Variant value;
    RETURN_IF_FAILED_EXPECTED(GetPropertyValue(value.Put(), type));
    switch (type) {
        case ValueType_Varies:
            text = VariesText();
            return S_OK;
        case ValueType_Unspecified:
            text = m_unspecifiedText;
            return S_OK;
        default:
            RETURN_HR_IF(E_FAIL, !value.Is(VT_BSTR));
            text = value.StringView();
            return S_OK;
    }
}

HRESULT CKvPeEditBase::Handle_InitEditControl(VARIANT* objects, VARIANT* dynamicProperties, VARIANT* dispids,
                                              short readOnly) {
    RETURN_HR_IF(
        E_FAIL, FAILED(CKvPeCtrlBase::Handle_InitEditControl(objects, dynamicProperties, dispids, readOnly)));
    ValueType type = ValueType_Specific;
    RETURN_IF_FAILED_EXPECTED(ReadText(m_text, type));
    // An unspecified row's box keeps its text: the hint offers the unspecified one.
    if (type != ValueType_Unspecified && HasEditWindow()) {
        m_edit->SetWindowText(m_text);
    }
    return S_OK;
}

HRESULT CKvPeEditBase::Handle_Refresh() {
    ValueType type = ValueType_Specific;
    RETURN_IF_FAILED_EXPECTED(ReadText(m_text, type));
    if (HasEditWindow() && IsInEdit()) {
        m_edit->SetWindowText(m_text);
        m_edit->ResetSelection();
    }
    return S_OK;
}

bool CKvPeEditBase::IsReadOnlyRow() {
    int readOnly = FALSE;
    return SUCCEEDED(PropReadOnly(readOnly)) && readOnly != FALSE;
}

bool CKvPeEditBase::IsInEdit() const {
    return m_state >= EditState_InEdit;
}

CRect CKvPeEditBase::RowClientRect() const {
    CRect client;
    if (const HWND window = ControlWindow()) {
        ::GetClientRect(window, &client);
    }
    return client;
}

HRESULT CKvPeEditBase::BeginEdit(const RECT& bounds) {
    const CRect row = bounds;
    const bool readOnly = IsReadOnlyRow();
    if (readOnly) {
        RETURN_HR_IF(S_OK, m_editBoxReadOnly || !HasEditWindow());
        m_edit->SetWindowText(m_text);
    } else {
        if (!HasEditWindow()) {
            RETURN_IF_FAILED_EXPECTED(CreateEdit(row));
        }
        if (!IsInEdit()) {
            OpenEdit(row);
        }
        m_edit->SetAllowUnspecified(m_allowUnspecified);
        m_edit->ShowUnspecifiedHint(m_allowUnspecified);
        m_edit->SetFocus();
        RETURN_HR_IF(E_FAIL, !HasEditWindow());  // the focus can bring the palette to let the row go
        if (m_editBoxReadOnly) {
            m_edit->HideTheCaret();
            return S_OK;
        }
    }
    m_edit->SetReadOnly(readOnly);
    return S_OK;
}

HRESULT CKvPeEditBase::CreateEdit(const RECT& bounds) {
    const HWND window = ControlWindow();
    RETURN_HR_IF(E_FAIL, !window);
    auto edit = std::make_unique<CEditEx>(this);
    const DWORD style = c_editStyle | (m_editBoxReadOnly ? ES_READONLY : 0U);
    RETURN_HR_IF(E_FAIL, !edit->Create(style, bounds, window, KVPE_ID_EDIT));
    edit->SetFont(FontHandle());
    KeepEdit(std::move(edit));
    return S_OK;
}

void CKvPeEditBase::OpenEdit(const RECT& bounds) {
    m_edit->ShowWindow(SW_SHOW);
    m_textTip.SetOwner(m_edit->m_hWnd, ControlWindow());
    m_edit->SetWindowText(m_text);
    CRect atOrigin = bounds;
    atOrigin.MoveTo(0, 0);
    m_state = EditState_InEdit;
    fw::Ignore(Handle_SetObjectRects(&atOrigin, &atOrigin));  // it places what is there
    m_edit->ResetSelection();
}

HRESULT CKvPeEditBase::MouseClick(UINT, CPoint) {
    RETURN_HR_IF(S_OK, IsReadOnlyRow() || m_state == EditState_NeverShown);
    HRESULT begun = S_OK;
    if (m_state == EditState_Shown) {
        begun = BeginEdit(RowClientRect());
    }
    if (IsInEdit()) {
        m_state = EditState_InEditAfterClick;
    }
    return begun;
}

HRESULT CKvPeEditBase::DoubleClick(const RECT& bounds) {
    RETURN_HR_IF(S_OK, IsReadOnlyRow());
    RETURN_IF_FAILED_EXPECTED(BeginEdit(bounds));
    return MouseClick(0, CPoint());
}

HRESULT CKvPeEditBase::GetTextTipWidth(int& width) {
    return GetStringWidth(m_text, &width);
}

void CKvPeEditBase::PresetText(const CString& text) {
    if (!HasEditWindow()) {
        auto edit = std::make_unique<CEditEx>(this);
        if (!edit->Create(c_presetStyle, CRect(), ControlWindow(), KVPE_ID_PRESET_EDIT)) {
            return;
        }
        edit->ShowWindow(SW_HIDE);
        KeepEdit(std::move(edit));
    }
    m_edit->SetWindowText(text);
}

void CKvPeEditBase::PresetNumber(int number) {
    CString text;
    text.Format(L"%d", number);
    CKvPeEditBase::PresetText(text);
}

bool CKvPeEditBase::GetChosenEntryText(CString&) {
    return false;
}
