// The row as the shell sees it: painting, verbs and the messages of its children.
#include "core/CIPropEditUIEvents.h"
#include "core/ChildIds.h"
#include "core/EditState.h"
#include "core/OleColors.h"
#include "core/PrivateMessages.h"
#include "families/CKvPeComboBase.h"
#include "families/CPeComboCustom.h"
#include "framework/base/DeviceContexts.h"
#include "framework/window/CDC.h"
#include "host_sdk/CKvUiMRUComboBox.h"

namespace {

constexpr UINT c_textFormat = DT_VCENTER | DT_SINGLELINE | DT_NOCLIP | DT_NOPREFIX | DT_END_ELLIPSIS;
constexpr LONG c_textMargin = 2;

// Lists that measure and delete their entries themselves.
bool KeepsItsEntries(CLzUiComboBox* list) {
    return dynamic_cast<CKvUiComboBox*>(list) != nullptr || dynamic_cast<CPeComboCustom*>(list) != nullptr;
}

}  // namespace

HRESULT CKvPeComboBase::Handle_OnDraw(ATL_DRAWINFO& info) {
    CDC dc(info.hdcDraw);
    const bool isTip = CPropTextTooltip::IsTextTip(dc.GetSafeHdc());
    RETURN_HR_IF(S_OK, IsInEdit() && !isTip);  // the list paints itself
    const RECT bounds = {info.prcBounds->left, info.prcBounds->top, info.prcBounds->right,
                         info.prcBounds->bottom};
    const fw::ScopedSaveDc saved(dc);
    if (m_bDrawHighlighted) {
        dc.SetBkMode(TRANSPARENT);
        dc.SetTextColor(::GetSysColor(COLOR_HIGHLIGHTTEXT));
        dc.SetBkColor(::GetSysColor(COLOR_HIGHLIGHT));
    }
    BOOL handled = TRUE;
    Handle_OnCtlColor(WM_KVPE_CTLCOLOR, reinterpret_cast<WPARAM>(dc.GetSafeHdc()), 0, handled);
    const fw::ScopedSelect font(dc, FontHandle());
    if (!isTip) {
        dc.ExtTextOut(bounds.left, bounds.top, ETO_OPAQUE, &bounds, CString());
    }
    CRect text = bounds;
    text.left += c_textMargin;
    text.top += c_textMargin;
    dc.DrawText(m_strText, &text, c_textFormat);
    return S_OK;
}

// The list follows the system's colour whatever the palette has set.
LRESULT CKvPeComboBase::Handle_OnCtlColor(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled) {
    fw::Ignore(Handle_put_BackColor(SystemOleColor(COLOR_WINDOW)));  // accepts every colour
    return CKvPeCtrlBase::Handle_OnCtlColor(message, wParam, lParam, handled);
}

HRESULT CKvPeComboBase::Handle_put_Font(IUnknown* font) {
    RETURN_IF_FAILED_EXPECTED(CKvPeCtrlBase::Handle_put_Font(font));
    if (HasList()) {
        m_pList->SetFont(FontHandle());
        m_pList->Invalidate();
        if (auto* const list = dynamic_cast<CKvUiMRUComboBox*>(m_pList.get())) {
            list->RecalcHeight();
        }
    }
    return S_OK;
}

HRESULT CKvPeComboBase::Handle_get_KeepFocus(short* keepFocus) {
    RETURN_IF_NULL_POINTER(keepFocus);
    *keepFocus = HasList() && m_pList->GetDroppedState() ? VARIANT_TRUE : VARIANT_FALSE;
    return S_OK;
}

HRESULT CKvPeComboBase::Handle_DoVerbHide() {
    if (!m_keepEditOnHide && IsInEdit()) {
        LeaveEdit();
        m_state = EditState_Shown;
    }
    ShowChildren(SW_HIDE);
    return S_OK;
}

HRESULT CKvPeComboBase::Handle_DoVerbShow() {
    if (IsInEdit()) {
        ShowChildren(SW_SHOW);
    }
    return S_OK;
}

void CKvPeComboBase::ShowChildren(int command) {
    const auto show = [command](CWnd& window) {
        window.ShowWindow(command);
        if (command != SW_HIDE) {
            window.BringWindowToTop();
            window.Invalidate();
        }
    };
    if (HasList()) {
        show(*m_pList);
    }
    if (HasButton() && (command == SW_HIDE || m_bHasDialog)) {
        show(*m_pButton);
    }
}

void CKvPeComboBase::LeaveEdit() {
    // An open list marks the entry under the mouse, and nobody has chosen that.
    if (HasList() && m_pList->GetDroppedState() && m_pList->GetCurSel() == m_hoveredItem) {
        m_bCancelled = TRUE;
    }
    fw::Ignore(EndEdit());  // a refused write was told to the user; the row is left all the same
    m_bCancelled = FALSE;
}

HRESULT CKvPeComboBase::Handle_UIDeactivate() {
    if (HasButton()) {
        m_pButton->ShowWindow(SW_HIDE);
        m_pButton->Invalidate();
    }
    if (IsInEdit()) {
        LeaveEdit();
    }
    m_state = EditState_Shown;
    if (HasList()) {
        m_pList->ShowWindow(SW_HIDE);
        m_pList->Invalidate();
    }
    return S_OK;
}

HRESULT CKvPeComboBase::OnSelectionCancel(UINT, WPARAM, LPARAM, BOOL&) {
    m_bCancelled = TRUE;
    const HRESULT ended = EndEdit();
    m_bCancelled = FALSE;  // a cancel that found nothing to take back is no part of the next choice
    return ended;
}

HRESULT CKvPeComboBase::OnSelectionEndOk(UINT, WPARAM, LPARAM, BOOL&) {
    m_bCancelled = FALSE;
    const HRESULT ended = EndEdit();
    // What the write tells can bring the palette to leave the row.
    if (IsInEdit()) {
        m_state = EditState_ChoiceAccepted;
    }
    return ended;
}

HRESULT CKvPeComboBase::OnDrawItem(UINT, WPARAM id, DRAWITEMSTRUCT* item, BOOL& handled) {
    handled = TRUE;
    if (id == KVPE_ID_LAUNCHER_BUTTON && m_pButton) {
        m_pButton->DrawItem(item);
    } else if (id == KVPE_ID_LIST && m_pList) {
        if (CLzUiComboBox::IsVistaTheme() && CLzUiComboBox::IsInEdit(item->itemState)) {
            m_pList->SendMessage(WM_PAINT);  // the closed part is painted whole
        } else {
            m_pList->DrawItem(item);
        }
    } else {
        handled = FALSE;
    }
    return S_OK;
}

HRESULT CKvPeComboBase::OnMeasureItem(UINT, WPARAM id, MEASUREITEMSTRUCT* item, BOOL& handled) {
    handled = id == KVPE_ID_LIST;
    if (handled && KeepsItsEntries(m_pList.get())) {
        m_pList->MeasureItem(item);
    } else if (handled) {
        CRect row;
        ::GetWindowRect(ControlWindow(), &row);
        constexpr LONG frame = 2;
        item->itemHeight = static_cast<UINT>(row.Height() - frame);
    }
    return S_OK;
}

HRESULT CKvPeComboBase::OnDeleteItem(UINT, WPARAM id, DELETEITEMSTRUCT* item, BOOL& handled) {
    handled = id == KVPE_ID_LIST && KeepsItsEntries(m_pList.get());
    if (handled) {
        m_pList->DeleteItem(item);
    }
    return S_OK;
}
