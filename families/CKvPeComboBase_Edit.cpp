// From the idle row to the open list and back: where a choice becomes a write.
#include "core/CIPropEditUIEvents.h"
#include "core/ChildIds.h"
#include "core/EditState.h"
#include "core/HostDocument.h"
#include "families/CKvPeComboBase.h"
#include "framework/com/Guarded.h"
#include "framework/window/RedrawPause.h"

namespace {

// The drop-down may open to this many rows' height.
constexpr int c_openRows = 9;
// The window's frame lies outside of the row.
constexpr LONG c_frame = 2;

// Says that a choice is being written, for as long as it lives.
class CommitMark {
public:
    explicit CommitMark(bool& isCommitting) : m_isCommitting(isCommitting) { m_isCommitting = true; }
    CommitMark(const CommitMark&) = delete;
    CommitMark& operator=(const CommitMark&) = delete;
    ~CommitMark() { m_isCommitting = false; }

private:
    bool& m_isCommitting;
};

}  // namespace

HRESULT CKvPeComboBase::BeginEdit(const RECT& bounds) {
    RETURN_HR_IF(E_FAIL, m_bNeedsActiveDatabase && !IsCurrentDocumentActive());
    ForgetEndedWindows();
    if (IsReadOnlyRow()) {
        if (HasList()) {
            m_pList->ShowWindow(SW_HIDE);
            m_pList->Invalidate();
        }
        if (HasButton()) {
            m_pButton->ShowWindow(SW_HIDE);
        }
        return S_OK;
    }
    FocusList();
    RETURN_HR_IF(S_OK, m_state == EditState_InEdit);
    const CRect row = bounds;
    RETURN_IF_FAILED_EXPECTED(PrepareLauncher(row.Height()));
    RETURN_IF_FAILED_EXPECTED(PrepareList(row));
    if (!IsInEdit()) {
        // Rows that are not seen yet need no painting, and without it a long list fills in a fraction of the
        // time.
        const fw::RedrawPause pause(*m_pList);
        fw::Ignore(FillList());  // an empty list still opens
        RETURN_HR_IF(E_FAIL, !HasList());
    }
    OpenList(bounds);
    return HasList() ? S_OK : E_FAIL;
}

HRESULT CKvPeComboBase::PrepareList(const CRect& row) {
    const int rowHeight = row.Height();
    if (!m_pList) {
        const LONG width = row.Width() - (m_pButton ? rowHeight : 0);
        const CRect place(-c_frame, -c_frame, width + c_frame, c_openRows * rowHeight);
        RETURN_HR_IF(E_FAIL, FAILED(CreateComboWindow(place)) || !HasList());
    }
    ::SetWindowLongPtrW(m_pList->m_hWnd, GWLP_ID, KVPE_ID_LIST);
    m_pList->SetFont(FontHandle());
    const UINT entryHeight = static_cast<UINT>(rowHeight - c_frame);
    m_pList->SetItemHeight(-1, entryHeight);
    m_pList->SetItemHeight(0, entryHeight);
    return S_OK;
}

void CKvPeComboBase::OpenList(const RECT& bounds) {
    m_pList->ShowWindow(SW_SHOW);
    if (HasButton()) {
        m_pButton->ShowWindow(SW_SHOW);
    }
    m_state = EditState_InEdit;
    FocusList();
    // The focus can bring the palette to leave the row, to end its window or to let it go.
    ForgetEndedWindows();
    if (!HasList() || !IsInEdit()) {
        return;
    }
    fw::Ignore(Handle_SetObjectRects(&bounds, &bounds));  // it places what is there
    if (HasList()) {
        m_textTip.SetOwner(m_pList->m_hWnd, ControlWindow());
    }
}

HRESULT CKvPeComboBase::Handle_SetObjectRects(const RECT* bounds, const RECT*) {
    RETURN_IF_NULL_POINTER(bounds);
    RETURN_HR_IF(S_OK, !IsInEdit());
    CRect list = *bounds;
    list.MoveTo(0, 0);  // in the row's own coordinates
    const int rowHeight = list.Height();
    if (HasButton()) {
        CRect button = list;
        if (m_nButtonSide == ButtonSide_Right) {
            button.left = button.right - rowHeight;
            list.right = button.left;
        } else {
            button.right = button.left + rowHeight;
            list.left = button.right + 1;
        }
        m_pButton->SetWindowPos(HWND_TOP, button.left, button.top, button.Width(), button.Height(),
                                SWP_NOACTIVATE);
    }
    list.Inflate(c_frame, c_frame);
    if (HasButton()) {
        list.right -= c_frame;
    }
    if (HasList()) {
        m_pList->SetWindowPos(nullptr, -c_frame, -c_frame, list.Width(), c_openRows * rowHeight,
                              SWP_NOACTIVATE | SWP_NOZORDER);
        m_pList->SetItemHeight(-1, static_cast<UINT>(rowHeight - c_frame));
    }
    return S_OK;
}

HRESULT CKvPeComboBase::EndEdit() {
    RETURN_HR_IF(E_FAIL, !IsInEdit() || !HasList());
    RETURN_HR_IF(S_OK, m_isCommitting);  // the palette leaves the row in the middle of the write
    m_hoveredItem = -1;
    fw::Ignore(EndLivePreview());  // whatever is decided starts from the drawing's real state
    RETURN_HR_IF(E_FAIL, !HasList());
    m_bDrawHighlighted = FALSE;
    const int choice = m_pList->GetCurSel();
    if (choice != m_nCurItem) {
        m_state = EditState_InEdit;  // a new choice overrides a finished one
    }
    RETURN_HR_IF(S_OK, m_state >= EditState_Committing);
    if (m_bCancelled) {
        m_bCancelled = FALSE;
        TakeChoiceBack(choice);
        return S_OK;
    }
    if (choice == -1) {
        m_nCurItem = -1;
        return E_FAIL;
    }
    RETURN_HR_IF(S_OK, choice == m_nCurItem);
    return Commit(choice);
}

void CKvPeComboBase::TakeChoiceBack(int choice) {
    if (choice != m_nCurItem) {
        m_pList->SetCurSel(m_nCurItem);
        RepaintList();
    }
}

HRESULT CKvPeComboBase::Commit(int choice) {
    const CommitMark mark(m_isCommitting);
    m_state = EditState_Committing;
    m_pList->SetRedraw(FALSE);
    // What the host throws is a refusal like any other.
    const HRESULT written = fw::Guarded([&] { return SetSelectedItem(choice); });
    RETURN_HR_IF(E_FAIL, !HasList());  // the write can bring the palette to let the row go
    fw::Ignore(fw::Guarded([&] {
        TakeWrittenItem(choice, written);
        return S_OK;
    }));
    RETURN_HR_IF(E_FAIL, !HasList());
    m_pList->SetCurSel(m_nCurItem);
    m_pList->SetRedraw(TRUE);
    m_pList->UpdateWindow();
    RETURN_HR_IF(E_FAIL, m_nCurItem == -1);
    m_strText = GetItemText(m_nCurItem);
    m_textTip.HideTextTooltip();
    SetTextTipOwner();
    if (IsInEdit()) {
        FocusList();
    }
    if (const HWND window = ControlWindow()) {
        ::InvalidateRect(window, nullptr, TRUE);
    }
    return S_OK;
}

void CKvPeComboBase::TakeWrittenItem(int choice, HRESULT written) {
    if (SUCCEEDED(written) && m_failedObjectCount <= 0) {
        m_nCurItem = choice;
        return;
    }
    // What the objects hold now is not known.
    if (GetCurrentItem() != m_nCurItem) {
        fw::Ignore(FillList());  // the next read finds what there is
        m_nCurItem = GetCurrentItem();
    }
}
