// The buttons of rows, pressed as a user does.
#include <cwchar>

#include "palette/commands/MessageLoop.h"
#include "palette/commands/RowEditor.h"

namespace kvpalette {

namespace {

struct ButtonName {
    const wchar_t* name;
    int id;
};

// Ids of the buttons inside a control. A row has one button for its dialog: a small one, or a list's
// launcher.
constexpr ButtonName c_buttons[] = {
    {L"dialog", 1043},
    {L"dialog", 1039},
    {L"calculator", 1046},
    {L"pick", 1047},
};

HWND FindButton(HWND control, const std::wstring& name) {
    for (const ButtonName& button : c_buttons) {
        HWND const window = ::GetDlgItem(control, button.id);
        if (name == button.name && window && ::IsWindowVisible(window) && ::IsWindowEnabled(window)) {
            return window;
        }
    }
    return nullptr;
}

void Press(HWND button) {
    RECT client{};
    ::GetClientRect(button, &client);
    const LPARAM middle = MAKELPARAM(client.right / 2, client.bottom / 2);
    ::PostMessageW(button, WM_LBUTTONDOWN, MK_LBUTTON, middle);
    ::PostMessageW(button, WM_LBUTTONUP, 0, middle);
    PumpMessages();
}

}  // namespace

CommandResult RowEditor::Click(const std::wstring& name, const std::wstring& button) {
    std::size_t row = 0;
    if (CommandResult found = Find(name, row); !found) {
        return found;
    }
    if (Row(row).kind == RowKind::Painted) {
        return CommandResult::Refused(L"the row's control " + Row(row).property.control +
                                      L" is not available");
    }
    m_window.Palette().Pane().ShowRow(row);
    PumpMessages();
    HWND child = nullptr;
    if (FAILED(Activate(row, child)) || !m_window.Palette().Pane().Active()) {
        return CommandResult::Refused(L"the row does not go into edit");
    }
    HWND const window = FindButton(m_window.Palette().Pane().Active()->Window(), button);
    if (!window) {
        m_window.Palette().Pane().LeaveRow();
        return CommandResult::Refused(L"the row has no button '" + button + L"'");
    }
    Press(window);
    m_window.Palette().Pane().LeaveRow();
    PumpMessages();
    return CommandResult::Done();
}

}  // namespace kvpalette
