#include "families/CPropertyEditorButton.h"

#include "core/CKvPeCtrlBase.h"
#include "core/ShellHold.h"
#include "families/SmallButtonPainter.h"
#include "framework/base/Hresult.h"
#include "framework/window/CDC.h"

namespace {

bool IsKeyDown(int key) {
    return ::GetKeyState(key) < 0;
}

bool IsLetterKey(UINT key) {
    return key >= 'A' && key <= 'Z';
}

int Margin(LONG button, LONG picture) {
    return picture < button ? static_cast<int>((button - picture) / 2) : 0;
}

fw::ComPtr<IUnknown> HoldRow(const CKvPeCtrlBase* owner) {
    return owner ? HoldShell(owner->Events()) : nullptr;
}

}  // namespace

CPropertyEditorButton::CPropertyEditorButton() : CPropertyEditorButton(nullptr, nullptr) {
}

CPropertyEditorButton::CPropertyEditorButton(IPicture* defaultPicture)
    : CPropertyEditorButton(defaultPicture, nullptr) {
}

CPropertyEditorButton::CPropertyEditorButton(IPicture* defaultPicture, IPicture* disabledPicture)
    : m_faceColor(::GetSysColor(COLOR_BTNFACE)), m_frameColor(::GetSysColor(COLOR_BTNSHADOW)) {
    SetPictures(defaultPicture, disabledPicture);
}

CPropertyEditorButton::~CPropertyEditorButton() {
    DestroyWindow();
}

void CPropertyEditorButton::SetButtonSize(int width, int height) {
    m_width = width > 0 ? width : m_width;
    m_height = height > 0 ? height : m_height;
    CentrePictures();
}

void CPropertyEditorButton::SetPictures(IPicture* defaultPicture, IPicture* disabledPicture) {
    m_defaultPicture = defaultPicture;
    m_disabledPicture = disabledPicture;
    m_defaultSize = SmallButtonPainter::NaturalSize(defaultPicture);
    m_disabledSize = SmallButtonPainter::NaturalSize(disabledPicture);
    CentrePictures();
    if (IsWindow()) {
        Invalidate();
    }
}

void CPropertyEditorButton::CentrePictures() {
    m_defaultTop = Margin(m_height, m_defaultSize.cy);
    m_defaultLeft = Margin(m_width, m_defaultSize.cx);
    m_disabledTop = Margin(m_height, m_disabledSize.cy);
    m_disabledLeft = Margin(m_width, m_disabledSize.cx);
}

void CPropertyEditorButton::SetTipText(const CString& text) {
    if (IsWindow() && (m_toolTip.GetSafeHwnd() || m_toolTip.Create(m_hWnd))) {
        m_toolTip.SetTipText(text);
    }
}

void CPropertyEditorButton::Enable(bool enable) {
    m_enabled = enable;
    EnableWindow(enable);
    Invalidate();
    UpdateWindow();
}

void CPropertyEditorButton::DrawItem(DRAWITEMSTRUCT* item) {
    if (m_defaultPicture || m_disabledPicture) {
        CLzUiOwnerDrawButton::DrawItem(item);
        return;
    }
    SmallButtonPainter::DrawFace(item->hDC, item->rcItem, m_faceColor);
    SmallButtonPainter::DrawFrame(item->hDC, item->rcItem, m_frameColor);
    SmallButtonPainter::DrawEllipsis(item->hDC, item->rcItem);
    if ((item->itemState & ODS_FOCUS) != 0) {
        CDC(item->hDC).DrawFocusRect(SmallButtonPainter::FocusRect(item->rcItem, m_focusInset));
    }
}

void CPropertyEditorButton::OnPaintButton(CDC& dc, const RECT& bounds, UINT flags) {
    const bool flat = (flags & PaintFlags_Flat) != 0;
    SmallButtonPainter::DrawFace(dc, bounds, m_faceColor);
    if (!flat) {
        SmallButtonPainter::DrawFrame(dc, bounds, m_frameColor);
    }
    const int shift = (flags & PaintFlags_Pressed) != 0 ? 1 : 0;
    if (m_enabled) {
        const CPoint origin(bounds.left + m_defaultLeft + shift, bounds.top + m_defaultTop + shift);
        SmallButtonPainter::DrawPicture(dc, origin, m_defaultPicture.Get(), m_defaultSize);
    } else {
        const CPoint origin(bounds.left + m_disabledLeft + shift, bounds.top + m_disabledTop + shift);
        SmallButtonPainter::DrawPicture(dc, origin, m_disabledPicture.Get(), m_disabledSize);
    }
    if (!flat && (flags & PaintFlags_Focused) != 0) {
        dc.DrawFocusRect(SmallButtonPainter::FocusRect(bounds, m_focusInset));
    }
}

BOOL CPropertyEditorButton::PreTranslateMessage(MSG* message) {
    if (message->hwnd != m_hWnd) {
        return CLzUiOwnerDrawButton::PreTranslateMessage(message);
    }
    const fw::ComPtr<IUnknown> shell = HoldRow(m_owner);
    const fw::LifeWatch alive(*this);
    m_toolTip.RelayEvent(*message);
    if (message->message == WM_LBUTTONDOWN) {
        SetFocus();
    } else if (message->message == WM_KEYDOWN && m_owner && OnKeyDown(*message)) {
        return TRUE;
    }
    return alive ? CLzUiOwnerDrawButton::PreTranslateMessage(message) : TRUE;
}

BOOL CPropertyEditorButton::OnKeyDown(const MSG& message) {
    const UINT key = static_cast<UINT>(message.wParam);
    if (key == VK_TAB) {
        fw::Ignore(m_owner->Fire_OnKeyDown(key, message.lParam));  // no sink can change what follows
        return TRUE;
    }
    if (key == VK_RETURN) {
        ::PostMessageW(GetParent(), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(), BN_CLICKED),
                       reinterpret_cast<LPARAM>(m_hWnd));
        return TRUE;
    }
    if (IsKeyDown(VK_SHIFT) && IsKeyDown(VK_CONTROL) && IsLetterKey(key)) {
        fw::Ignore(m_owner->Fire_OnKeyDown(key, message.lParam));  // as above
    }
    return FALSE;
}

LRESULT CPropertyEditorButton::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    static constexpr std::array s_messages{
        fw::OnMessage(WM_RBUTTONDOWN, &CPropertyEditorButton::OnRButtonDown),
        fw::OnMessage(WM_SYSKEYDOWN, &CPropertyEditorButton::OnSysKeyDown),
    };
    // A click can lead the palette to let the row go.
    const fw::ComPtr<IUnknown> shell = HoldRow(m_owner);
    LRESULT result = 0;
    return fw::DispatchMessage(s_messages, *this, message, wParam, lParam, result)
               ? result
               : CLzUiOwnerDrawButton::WindowProc(message, wParam, lParam);
}

LRESULT CPropertyEditorButton::OnRButtonDown(UINT, WPARAM wParam, LPARAM lParam, BOOL& handled) {
    handled = m_owner != nullptr;
    if (m_owner) {
        CPoint point(lParam);
        MapWindowPoints(GetParent(), &point, 1);
        fw::Ignore(m_owner->Fire_OnRButtonDown(wParam, point.Packed()));  // as above
    }
    return 0;
}

// A row whose box takes no typing has the focus here: the keys with Alt are the row's as they are in its box.
LRESULT CPropertyEditorButton::OnSysKeyDown(UINT, WPARAM wParam, LPARAM lParam, BOOL& handled) {
    const fw::LifeWatch alive(*this);
    bool done = false;
    const bool isAsked = m_owner && SUCCEEDED(m_owner->PropertySysKeyDown(
                                        static_cast<UINT>(wParam), LOWORD(lParam), HIWORD(lParam), done));
    handled = !alive || (isAsked && done);
    return 0;
}
