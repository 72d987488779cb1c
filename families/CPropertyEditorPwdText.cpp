#include "families/CPropertyEditorPwdText.h"

#include "core/ChildIds.h"
#include "core/ClassCreators.h"
#include "families/CKvPeEditTempl.h"
#include "families/CPWEdit.h"

namespace {

constexpr DWORD c_maskedStyle = WS_CHILD | WS_TABSTOP | ES_PASSWORD | ES_AUTOHSCROLL;

}  // namespace

bool CPropertyEditorPwdText::HasMaskedWindow() const {
    return HasEditWindow() && dynamic_cast<const CPWEdit*>(m_edit.get()) != nullptr;
}

HRESULT CPropertyEditorPwdText::CreateMaskedWindow() {
    const HWND window = ControlWindow();
    RETURN_HR_IF(E_FAIL, !window);
    auto edit = std::make_unique<CPWEdit>(this);
    RETURN_HR_IF(E_FAIL, !edit->Create(c_maskedStyle, RowClientRect(), window, KVPE_ID_PASSWORD_EDIT));
    edit->SetFont(FontHandle());
    edit->SetWindowText(m_text);
    KeepEdit(std::move(edit));
    return S_OK;
}

// While no edit runs, nothing else tells the box that the row has another value or size.
void CPropertyEditorPwdText::KeepMaskedWindowInStep() {
    if (IsInEdit()) {
        return;
    }
    if (!(m_edit->GetWindowText() == m_text)) {
        m_edit->SetWindowText(m_text);
    }
    const CRect row = RowClientRect();
    if (!(m_edit->GetWindowRect().Size() == row.Size())) {
        m_edit->MoveWindow(row);
    }
}

HRESULT CPropertyEditorPwdText::Handle_OnDraw(ATL_DRAWINFO& info) {
    if (IsReadOnlyRow()) {
        if (HasEditWindow() && m_edit->IsWindowVisible()) {
            m_edit->ShowWindow(SW_HIDE);
        }
        return CKvPeEditBase::Handle_OnDraw(info);
    }
    if (!HasMaskedWindow()) {
        RETURN_IF_FAILED_EXPECTED(CreateMaskedWindow());
    }
    KeepMaskedWindowInStep();
    m_edit->ShowWindow(SW_SHOW);
    m_edit->Invalidate();
    m_edit->HideTheCaret();
    return S_OK;
}

HRESULT CPropertyEditorPwdText::BeginEdit(const RECT& bounds) {
    if (!IsReadOnlyRow() && !HasMaskedWindow()) {
        // The first paint makes the box. Without it the family would open a box that shows the value.
        const HWND window = ControlWindow();
        RETURN_HR_IF(E_FAIL, !window);
        ::RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
        RETURN_HR_IF(E_FAIL, !HasMaskedWindow());
    }
    return CKvPeEditBase::BeginEdit(bounds);
}

LRESULT CPropertyEditorPwdText::Handle_ShowTextTip(UINT, WPARAM, LPARAM, BOOL&) {
    return 0;
}

KVPE_DEFINE_CREATOR(CPropertyEditorPwdText, CKvPeEditTempl<CPropertyEditorPwdText>)
