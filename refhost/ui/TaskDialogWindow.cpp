#include "refhost/ui/TaskDialogWindow.h"

#include <algorithm>

#include "framework/base/DeviceContexts.h"
#include "refhost/ui/ResourceIds.h"

namespace kvhost {

namespace {

// Sizes in dialog units, which follow the font.
constexpr int c_margin = 8;
constexpr int c_gap = 6;
constexpr int c_buttonWidth = 50;
constexpr int c_buttonHeight = 14;

LPCWSTR SystemIcon(TaskDialogDescription::Icon icon) {
    switch (icon) {
        case TaskDialogDescription::Icon::Information:
            return IDI_INFORMATION;
        case TaskDialogDescription::Icon::Warning:
            return IDI_WARNING;
        case TaskDialogDescription::Icon::Error:
            return IDI_ERROR;
        case TaskDialogDescription::Icon::None:
            break;
    }
    return nullptr;
}

CSize FromDialogUnits(HWND dialog, int width, int height) {
    RECT bounds{0, 0, width, height};
    ::MapDialogRect(dialog, &bounds);
    return {bounds.right, bounds.bottom};
}

fw::UniqueFont BoldVersionOf(HFONT font) {
    LOGFONTW description{};
    ::GetObjectW(font, sizeof description, &description);
    description.lfWeight = FW_BOLD;
    return fw::UniqueFont(::CreateFontIndirectW(&description));
}

}  // namespace

TaskDialogWindow::TaskDialogWindow(const TaskDialogDescription& description, HWND owner)
    : CDialog(KVHOST_DIALOG_MESSAGE, owner), m_description(description) {
}

TaskDialogWindow::~TaskDialogWindow() {
    DestroyWindow();
}

LRESULT TaskDialogWindow::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    const int id = LOWORD(wParam);
    if (message == WM_COMMAND && HIWORD(wParam) == BN_CLICKED && IsButton(id)) {
        EndDialog(id);
        return 0;
    }
    return CDialog::WindowProc(message, wParam, lParam);
}

BOOL TaskDialogWindow::OnInitDialog() {
    CDialog::OnInitDialog();
    SetWindowText(m_description.title.c_str());
    ShowIcon();
    m_instructionFont = BoldVersionOf(GetFont());
    ::SendDlgItemMessageW(m_hWnd, KVHOST_MESSAGE_INSTRUCTION, WM_SETFONT,
                          reinterpret_cast<WPARAM>(m_instructionFont.Get()), FALSE);
    const CSize gap = FromDialogUnits(m_hWnd, c_gap, c_gap);
    const CSize margin = FromDialogUnits(m_hWnd, c_margin, c_margin);
    int bottom = PlaceText(KVHOST_MESSAGE_INSTRUCTION, m_description.instruction, margin.cy);
    bottom = PlaceText(KVHOST_MESSAGE_CONTENT, m_description.content, bottom + gap.cy);
    // The icon may be higher than short texts.
    bottom = std::max(bottom, static_cast<int>(margin.cy) + ::GetSystemMetrics(SM_CYICON));
    PlaceButtons(bottom + 2 * gap.cy);
    return FALSE;
}

void TaskDialogWindow::ShowIcon() {
    if (const LPCWSTR icon = SystemIcon(m_description.icon)) {
        // Icons of the system are shared and not freed.
        ::SendDlgItemMessageW(m_hWnd, KVHOST_MESSAGE_ICON, STM_SETICON,
                              reinterpret_cast<WPARAM>(::LoadIconW(nullptr, icon)), 0);
    }
}

int TaskDialogWindow::PlaceText(int id, const std::wstring& text, int top) {
    CWnd item;
    item.Attach(GetDlgItem(id));
    item.SetWindowText(text.c_str());
    CRect bounds = item.GetWindowRect();
    ScreenToClient(&bounds);
    RECT needed{0, 0, bounds.right - bounds.left, 0};
    {
        const fw::WindowDc dc(item);
        const fw::ScopedSelect font(dc, item.GetFont());
        ::DrawTextW(dc, text.c_str(), -1, &needed, DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX);
    }
    item.MoveWindow(bounds.left, top, bounds.right - bounds.left, needed.bottom);
    return top + static_cast<int>(needed.bottom);
}

void TaskDialogWindow::PlaceButtons(int top) {
    const CSize size = FromDialogUnits(m_hWnd, c_buttonWidth, c_buttonHeight);
    const CSize gap = FromDialogUnits(m_hWnd, c_gap, c_margin);
    const CRect client = GetClientRect();
    const auto count = static_cast<int>(m_description.buttons.size());
    int left = client.right - gap.cx - count * size.cx - (count - 1) * gap.cx;
    for (const TaskDialogDescription::Button& button : m_description.buttons) {
        const bool isDefault = button.id == m_description.defaultButton;
        const DWORD kind = isDefault ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON;
        auto& made = m_buttons.emplace_back(std::make_unique<CButton>());
        made->Create(button.text.c_str(), WS_CHILD | WS_VISIBLE | WS_TABSTOP | kind,
                     CRect(left, top, left + size.cx, top + size.cy), m_hWnd, static_cast<UINT>(button.id));
        made->SetFont(GetFont());
        if (isDefault) {
            ::SendMessageW(m_hWnd, DM_SETDEFID, static_cast<WPARAM>(button.id), 0);
            made->SetFocus();
        }
        left += size.cx + gap.cx;
    }
    const CRect window = GetWindowRect();
    const int frame = (window.bottom - window.top) - (client.bottom - client.top);
    SetWindowPos(nullptr, 0, 0, window.right - window.left, top + size.cy + gap.cy + frame,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

bool TaskDialogWindow::IsButton(int id) const {
    return std::any_of(m_description.buttons.begin(), m_description.buttons.end(),
                       [&](const TaskDialogDescription::Button& button) { return button.id == id; });
}

}  // namespace kvhost
