#include "families/CEntryTipListBox.h"

#include "core/CKvPeCtrlBase.h"
#include "core/PrivateMessages.h"
#include "families/COwnerDrawItem.h"
#include "families/CPeBaseComboBox.h"
#include "framework/base/DeviceContexts.h"

CEntryTipListBox::CEntryTipListBox(const TextStyle& textStyle) : m_textStyle(textStyle) {
}

CEntryTipListBox::~CEntryTipListBox() = default;

BOOL CEntryTipListBox::PreTranslateMessage(MSG* message) {
    CKvPeCtrlBase* const owner = Owner();
    if (message->message == WM_MOUSEMOVE && owner) {
        m_tip.Follow(*this, *owner, EntryUnder(*message));
    } else if (message->message == WM_LBUTTONUP) {
        OnChosen();
    }
    return CPeListBox::PreTranslateMessage(message);
}

LRESULT CEntryTipListBox::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    static constexpr std::array s_messages{
        fw::OnMessage(WM_KVPE_DRAW_TIP, &CEntryTipListBox::OnDrawTip),
    };
    LRESULT result = 0;
    return fw::DispatchMessage(s_messages, *this, message, wParam, lParam, result)
               ? result
               : CPeListBox::WindowProc(message, wParam, lParam);
}

LRESULT CEntryTipListBox::OnDrawTip(UINT, WPARAM wParam, LPARAM, BOOL&) {
    const CKvPeCtrlBase* const owner = Owner();
    if (wParam != KVPE_TEXT_TIP_MARK || !owner || !m_tip.HasWindow()) {
        return 0;
    }
    COwnerDrawItem* const item = COwnerDrawItem::FromRowData(GetComboBox()->GetItemObject(m_tip.Entry()));
    const fw::WindowDc dc(m_tip.Window());
    EntryTipPainter::Draw(dc, m_tip.Rectangle(), owner->FontHandle(), item, GetText(m_tip.Entry()),
                          m_textStyle.format, m_textStyle.color);
    return 0;
}
