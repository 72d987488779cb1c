#include "families/CKvPeButtonEditBase.h"

#include "core/CIPropEditUIEvents.h"
#include "core/CTemporaryResourceOverride.h"
#include "core/ChildIds.h"
#include "core/EditState.h"
#include "core/ExpressionState.h"
#include "core/ModuleTexts.h"
#include "core/OleColors.h"
#include "families/SmallButtonLayout.h"
#include "framework/com/Guarded.h"
#include "resources/Ids.h"

namespace {

bool IsSmallButton(WORD id) {
    return id >= KVPE_ID_FIRST_SMALL_BUTTON && id <= KVPE_ID_LAST_SMALL_BUTTON;
}

CString SatelliteText(UINT id) {
    const CTemporaryResourceOverride resources;
    CString text;
    text.LoadString(id);
    return text;
}

}  // namespace

CKvPeButtonEditBase::CKvPeButtonEditBase(CIPropEditUIEvents* events, CKvPeBasePrivate* shell)
    : CKvPeEditBase(events, shell) {
}

CKvPeButtonEditBase::~CKvPeButtonEditBase() {
    DropEdit();
    DropButtons();
}

HRESULT CKvPeButtonEditBase::Cleanup() {
    DropEdit();
    DropButtons();
    return CKvPeEditBase::Cleanup();
}

// Opening the row

HRESULT CKvPeButtonEditBase::BeginEdit(const RECT& bounds) {
    const CRect row = bounds;
    const bool readOnly = IsReadOnlyRow();
    // A box that went with the container's window took its edit along.
    const bool wasInEdit = IsInEdit() && (HasEditWindow() || readOnly);
    RETURN_IF_FAILED_EXPECTED(BringButtonsInLine(static_cast<int>(row.Height()), readOnly));
    RETURN_IF_FAILED_EXPECTED(CKvPeEditBase::BeginEdit(row));
    if (!m_editBoxReadOnly && HasEditWindow()) {
        m_edit->SetReadOnly(readOnly);
    }
    if (!wasInEdit) {
        m_state = EditState_InEdit;
        fw::Ignore(Handle_SetObjectRects(&row, &row));  // it places what is there
        CustomButton* const first = m_buttons.IsEmpty() ? nullptr : m_buttons[0];
        if (m_bShowButtons && HasEditWindow() && first && first->HasWindow()) {
            m_edit->SetNextFocusWindow(first->m_pButton.get());
        }
    }
    if (m_bShowButtons) {
        ShowButtons(readOnly);
    }
    if (m_expressionState != ExpressionState_Unsupported) {
        ShowExpressionTip();
    }
    return S_OK;
}

void CKvPeButtonEditBase::ShowButtons(bool readOnly) {
    for (int index = 0; index < m_buttons.GetSize(); ++index) {
        const CustomButton* const record = m_buttons[index];
        if (record->HasWindow() && (!readOnly || record->m_bShowWhenReadOnly)) {
            record->m_pButton->ShowWindow(SW_SHOW);
        }
    }
    CustomButton* const first = FirstLiveButton();
    if (first && IsBoxReadOnly()) {
        first->m_pButton->SetFocus();
    }
}

bool CKvPeButtonEditBase::IsBoxReadOnly() const {
    return m_editBoxReadOnly || (HasEditWindow() && m_edit->IsReadOnly());
}

void CKvPeButtonEditBase::ShowExpressionTip() {
    CString tip;
    tip.Format(L"%s: %s", SatelliteText(IDS_EXPRESSION_LABEL).GetString(), ExpressionTipText().GetString());
    SetButtonTip(tip, KVPE_ID_PICK_BUTTON);
}

CString CKvPeButtonEditBase::ExpressionTipText() const {
    switch (m_expressionState) {
        case ExpressionState_Mixed:
            return VariesText();
        case ExpressionState_Shared:
            return m_expression;
        default:
            return SatelliteText(IDS_NO_EXPRESSION);
    }
}

// Places

HRESULT CKvPeButtonEditBase::Handle_SetObjectRects(const RECT* bounds, const RECT*) {
    RETURN_IF_NULL_POINTER(bounds);
    RETURN_HR_IF(S_OK, !IsInEdit());
    // The container gives the row's place in its own window; the children lie in the row's.
    const CRect row(CPoint(), CRect(*bounds).Size());
    PlaceEdit(LayOutButtons(row));
    return S_OK;
}

CRect CKvPeButtonEditBase::LayOutButtons(const CRect& row) {
    const auto side =
        m_nButtonSide == ButtonSide_Left ? SmallButtonLayout::Side::Left : SmallButtonLayout::Side::Right;
    SmallButtonLayout layout(row, side);
    for (int index = 0; index < m_buttons.GetSize(); ++index) {
        const CustomButton* const record = m_buttons[index];
        if (record && record->HasWindow()) {
            const CRect place = layout.NextButton();
            record->m_pButton->SetWindowPos(HWND_TOP, static_cast<int>(place.left),
                                            static_cast<int>(place.top), static_cast<int>(place.Width()),
                                            static_cast<int>(place.Height()), SWP_NOACTIVATE);
        }
    }
    return layout.Rest();
}

void CKvPeButtonEditBase::PlaceEdit(const CRect& place) {
    if (!HasEditWindow()) {
        return;
    }
    m_edit->SetWindowPos(HWND_TOP, static_cast<int>(place.left), static_cast<int>(place.top),
                         static_cast<int>(place.Width()), static_cast<int>(place.Height()), SWP_NOACTIVATE);
    PlaceEditText();
}

HRESULT CKvPeButtonEditBase::Handle_DoVerbShow() {
    RETURN_IF_FAILED_EXPECTED(CKvPeEditBase::Handle_DoVerbShow());
    if (!IsInEdit() || !m_bShowButtons) {
        return S_OK;
    }
    for (int index = 0; index < m_buttons.GetSize(); ++index) {
        if (const CustomButton* const record = m_buttons[index]; record && record->HasWindow()) {
            record->m_pButton->ShowWindow(SW_SHOW);
            record->m_pButton->BringWindowToTop();
            record->m_pButton->Invalidate();
        }
    }
    return S_OK;
}

HRESULT CKvPeButtonEditBase::Handle_UIDeactivate() {
    for (int index = 0; index < m_buttons.GetSize(); ++index) {
        if (const CustomButton* const record = m_buttons[index]; record && record->HasWindow()) {
            record->m_pButton->ShowWindow(SW_HIDE);
            record->m_pButton->Invalidate();
        }
    }
    return CKvPeEditBase::Handle_UIDeactivate();
}

// Messages of the row's children

LRESULT CKvPeButtonEditBase::OnButtonCommand(WORD code, WORD id, HWND, BOOL& handled) {
    if (IsSmallButton(id) && code == BN_CLICKED) {
        fw::Ignore(m_events->FireBeginPropertyUpdateEvent());  // no sink can change what follows
        // What fails has told the user. The end of the update is told also behind what the host throws.
        fw::Ignore(fw::Guarded([&] {
            if (id == KVPE_ID_CALCULATOR_BUTTON) {
                return LaunchCalculator();
            }
            return id == KVPE_ID_PICK_BUTTON ? OnPickButton() : OnCustomButton(id);
        }));
        const CustomButton* const record = FindVisibleButton(id);
        if (m_bShowButtons && record) {
            record->m_pButton->Invalidate();
        }
    } else {
        handled = FALSE;
    }
    // Deliberate: a command that is not ours ends an update that did not begin. Palettes count on the notice.
    fw::Ignore(m_events->FireEndPropertyUpdateEvent());
    return 0;
}

LRESULT CKvPeButtonEditBase::OnEditKillFocus(WORD code, WORD id, HWND, BOOL& handled) {
    if (code != EN_KILLFOCUS || id != KVPE_ID_EDIT) {
        handled = FALSE;
        return 0;
    }
    if (m_edit && !m_edit->IsInReturnKey() && IsInEdit()) {
        fw::Ignore(EndEdit());  // a refused text was told to the user and taken back
    }
    return 0;
}

LRESULT CKvPeButtonEditBase::OnDrawButton(UINT, UINT_PTR id, DRAWITEMSTRUCT* item, BOOL& handled) {
    const WORD buttonId = LOWORD(id);
    const CustomButton* const record = IsSmallButton(buttonId) ? FindButton(buttonId) : nullptr;
    handled = record && record->m_pButton;
    if (handled) {
        record->m_pButton->DrawItem(item);
    }
    return handled;
}

HRESULT CKvPeButtonEditBase::OnCustomButton(WORD) {
    return S_OK;
}

HRESULT CKvPeButtonEditBase::OnPickButton() {
    return S_OK;
}

bool CKvPeButtonEditBase::IsDialogKey(UINT key, UINT flags) {
    return (key == VK_UP || key == VK_DOWN) && (flags & KF_ALTDOWN) != 0;
}

void CKvPeButtonEditBase::ShowText() {
    if (HasEditWindow()) {
        m_edit->SetWindowText(m_text);
        if (IsInEdit()) {
            m_edit->ResetSelection();
        }
    }
}

void CKvPeButtonEditBase::RunDialogAndGoOn() {
    const CString former = HasEditWindow() && IsInEdit() ? m_edit->GetWindowText() : m_text;
    CString text = former;
    fw::Ignore(LaunchZRBPropertyDialog(text));  // only the text tells what came of it
    // Row and box change together: a box whose text is not the row's is written when it loses the focus.
    if (!(text == former)) {
        m_text = text;
        ShowText();
    }
    const bool wasInEdit = IsInEdit();
    const CRect row = RowClientRect();
    const CRect box = HasEditWindow() ? m_edit->GetClientRect() : row;
    fw::Ignore(CKvPeButtonEditBase::BeginEdit(box));  // without a box the row stays painted
    if (!wasInEdit) {
        // The dialog took the row out of edit. The box alone is narrower than the row that opens anew.
        fw::Ignore(Handle_SetObjectRects(&row, &row));
    }
}
