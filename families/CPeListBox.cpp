#include "families/CPeListBox.h"

#include "core/CKvPeCtrlBase.h"
#include "core/ChildIds.h"
#include "core/PrivateMessages.h"
#include "core/ShellHold.h"
#include "families/CPeBaseComboBox.h"
#include "preview/CKvPePreviewAbleCtrlBase.h"

namespace {

constexpr UINT c_lastMouseMessage = WM_XBUTTONDBLCLK;

bool IsMouseMessage(UINT message) {
    return message >= WM_MOUSEFIRST && message <= c_lastMouseMessage;
}

}  // namespace

CPeListBox::CPeListBox() = default;

CPeListBox::~CPeListBox() = default;

CKvPeCtrlBase* CPeListBox::Owner() const {
    return m_comboBox ? m_comboBox->GetOwner() : nullptr;
}

int CPeListBox::EntryUnder(const MSG& message) const {
    CPoint point(message.lParam);
    if (message.message == WM_MOUSEWHEEL) {
        ScreenToClient(&point);  // the one mouse message that tells the place on the screen
    }
    return ItemFromPoint(point);
}

BOOL CPeListBox::PreTranslateMessage(MSG* message) {
    if (!IsMouseMessage(message->message)) {
        return CLzUiListBox::PreTranslateMessage(message);
    }
    const fw::LifeWatch alive(*this);
    TellHover(EntryUnder(*message));
    return alive ? CLzUiListBox::PreTranslateMessage(message) : FALSE;
}

void CPeListBox::TellHover(int entry) {
    CKvPeCtrlBase* const owner = Owner();
    if (auto* const previewer = dynamic_cast<CKvPePreviewAbleCtrlBase*>(owner)) {
        const fw::ComPtr<IUnknown> shell = HoldShell(owner->Events());
        BOOL handled = TRUE;
        previewer->Handle_OnListHover(WM_KVPE_LIST_HOVER, KVPE_ID_LIST, entry, handled);
    }
}
