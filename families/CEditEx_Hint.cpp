// What shows beside the edit box: the text tip and the hint of the unspecified state.
#include "core/ChildIds.h"
#include "core/EditState.h"
#include "families/CEditEx.h"
#include "families/CKvPeEditBase.h"
#include "families/CPropNoDefaultWnd.h"
#include "families/EditRowPainter.h"
#include "framework/base/DeviceContexts.h"

namespace {

constexpr int c_tipMargin = 5;

}  // namespace

void CEditEx::ApplyTipRule() {
    int state = 0;
    const bool showsEdit = SUCCEEDED(m_owner->GetState(state)) && state >= EditState_InEdit && !IsReadOnly();
    if (showsEdit) {
        m_textTip.HideTextTooltip();
        return;
    }
    if (!m_textTip.IsWindow() && !m_textTip.Create(m_hWnd)) {
        return;
    }
    m_textTip.SetOwner(m_hWnd, GetParent());
    int width = 0;
    if (FAILED(m_owner->GetTextTipWidth(width)) || m_tipRect.Width() >= width) {
        m_textTip.HideTextTooltip();
        return;
    }
    CRect tip = m_tipRect;
    tip.right = tip.left + width + c_tipMargin;
    ScreenToClient(&tip);
    m_textTip.ShowTextTooltip(tip);
}

LRESULT CEditEx::OnDrawTip(UINT, WPARAM wParam, LPARAM lParam, BOOL&) {
    const HWND tip = reinterpret_cast<HWND>(lParam);
    if (static_cast<LONG>(wParam) != KVPE_TEXT_TIP_MARK || !CPropTextTooltip::IsTextTip(tip)) {
        return 0;
    }
    CRect bounds;
    ::GetClientRect(tip, &bounds);
    const fw::WindowDc dc(tip);
    const fw::ScopedSaveDc saved(dc);
    ::SetBkColor(dc, ::GetSysColor(COLOR_INFOBK));
    ::SetTextColor(dc, ::GetSysColor(COLOR_INFOTEXT));
    ::SetBkMode(dc, TRANSPARENT);
    EditRowPainter::Draw(dc, bounds, m_owner->GetRowText(), m_owner->FontHandle(),
                         EditRowPainter::Ground::Keep);
    return 0;
}

CRect CEditEx::HintPlace() const {
    CRect row;
    ::GetWindowRect(GetParent(), &row);
    row.Offset(0, row.Height());
    return row;
}

void CEditEx::ShowUnspecifiedHint(bool show) {
    if (!m_allowUnspecified) {
        return;
    }
    if (!show) {
        if (m_noDefaultWindow) {
            m_noDefaultWindow->HideAndStop();
        }
        return;
    }
    m_hintRect = HintPlace();
    if (!m_noDefaultWindow) {
        auto hint = std::make_unique<CPropNoDefaultWnd>(this);
        if (!hint->Create(m_hintRect)) {
            return;
        }
        m_noDefaultWindow = std::move(hint);
    }
    m_noDefaultWindow->SetWindowText(m_owner->GetUnspecifiedString());
    m_noDefaultWindow->Place(m_hintRect);
    if (IsWindowVisible()) {
        m_noDefaultWindow->ShowAndWatch();
    }
}

void CEditEx::CheckUnspecifiedHintPosition() {
    if (m_noDefaultWindow && !(HintPlace() == m_noDefaultWindow->Placement())) {
        m_noDefaultWindow->HideAndStop();
    }
}
