#include "families/EntryTip.h"

#include "core/CKvPeCtrlBase.h"
#include "host_sdk/CLzUiListBox.h"

namespace {

constexpr LONG c_margin = 5;

}  // namespace

void EntryTip::Follow(CLzUiListBox& list, CKvPeCtrlBase& owner, int entry) {
    if (entry < 0) {
        m_tip.HideTextTooltip();
        return;
    }
    if (entry != m_entry) {
        m_tip.HideTextTooltip();
    }
    m_entry = entry;
    CRect bounds;
    list.GetItemRect(entry, &bounds);
    if (!m_tip.IsWindow() && !m_tip.Create(list.m_hWnd)) {
        return;
    }
    int width = 0;
    if (FAILED(owner.GetComboTextTipWidth(entry, width)) || bounds.Width() >= width) {
        m_tip.HideTextTooltip();
        return;
    }
    bounds.right = bounds.left + width + c_margin;
    m_tip.SetOwner(list.m_hWnd, list.GetParent());
    m_tip.ShowTextTooltip(bounds);
    m_rectangle = bounds;
    list.MapWindowPoints(m_tip.m_hWnd, &m_rectangle);
}

void EntryTip::Forget() {
    m_rectangle = CRect();
    m_tip.HideTextTooltip();
}
